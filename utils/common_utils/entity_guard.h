#pragma once

#include <string>

namespace log4cpp {
class Category;
}

namespace zelvor {

/// While it lives, the XML parser opens nothing but the document itself and, as external entities, regular local files
/// at or below the document's own folder (links and ".." resolved). Everything else, network addresses, devices and
/// pipes included, is refused: its text is missing, and the log gets one error record that names document and entity.
/// The loader that was installed before comes back afterwards. Process-wide state: one parse at a time.
class EntityGuard {
public:
    /// Make one for each document, directly before it is parsed. pcat may be null and must outlive the guard.
    EntityGuard(const std::string& document, log4cpp::Category* pcat);
    ~EntityGuard();
    EntityGuard(const EntityGuard&) = delete;
    EntityGuard& operator=(const EntityGuard&) = delete;

private:
    struct Loader;

    std::string m_document;
    std::string m_folder; ///< real path, ending in "/"; empty when it cannot be resolved
    log4cpp::Category* m_pcat;
    bool m_document_opened = false;
    EntityGuard* m_pprevious_guard;
    void* m_pprevious_loader;
};

} // namespace zelvor
