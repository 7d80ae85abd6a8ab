#pragma once

#include <exception>
#include <functional>
#include <set>
#include <string>
#include <utility>

namespace log4cpp {
class Category;
}

namespace zelvor {

/// While it lives, the XML parser opens nothing but the document itself and, as external entities, regular local files
/// at or below the document's own folder (links and ".." resolved; for a document that is a link, also the folder of
/// the file behind it). Everything else, network addresses, devices and pipes included, is refused: its text is
/// missing, and the log gets one error record that names document and entity, or a listener a message that names the
/// entity. Each thread may have guards of its own; a guard is for parses in its thread. While there is any, the loader
/// of the XML library is that of all guards; the one that was installed before reads for threads without a guard, and
/// comes back after the last one.
class EntityGuard {
public:
    /// Make one for each document, directly before it is parsed. pcat may be null and must outlive the guard.
    EntityGuard(const std::string& document, log4cpp::Category* pcat);

    using Listener = std::function<void(const std::string& message)>; ///< not empty
    EntityGuard(const std::string& document, Listener refused);
    /// The document is standard input, whatever name the parser is given. It has no folder, and so no external entity.
    static EntityGuard for_standard_input(Listener refused) { return {"standard input", std::move(refused), true}; }

    /// To be called after the parse: throws what could not leave it, std::bad_alloc or what the listener threw.
    void rethrow() const;

    ~EntityGuard();
    EntityGuard(const EntityGuard&) = delete;
    EntityGuard& operator=(const EntityGuard&) = delete;

private:
    struct Loader;

    EntityGuard(const std::string& document, Listener refused, bool is_standard_input);

    bool is_below_document(const std::string& path) const;

    std::string m_document;   ///< as given, below the real path of its folder where that can be opened
    std::string m_folders[2]; ///< its own, and that of the file behind a link; ending in "/", or empty
    std::set<std::string> m_refused_addresses;
    Listener m_refused;
    bool m_is_standard_input;
    bool m_document_opened = false;
    std::exception_ptr m_thrown;
    EntityGuard* m_pprevious_guard; ///< of this thread
};

} // namespace zelvor
