#include "utils/common_utils/entity_guard.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/uri.h>
#include <log4cpp/Category.hh>

#include <cstdlib>
#include <memory>
#include <string_view>

#include <sys/stat.h>

namespace zelvor {

namespace {

EntityGuard* current_guard = nullptr;

/// The file behind a path with all links resolved; empty when there is none.
std::string real_path(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr), std::free);
    return resolved ? resolved.get() : "";
}

std::string folder_of(const std::string& path) {
    const std::string real = real_path(path);
    return real.substr(0, real.rfind('/') + 1);
}

bool is_regular_file(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

/// An address as the parser hands it over: a plain path, or a file URL, whose octets may be escaped.
std::string local_path(const char* address) {
    std::string_view path = address;
    for (const std::string_view prefix : {"file://localhost/", "file:///", "file:/"}) {
        if (path.starts_with(prefix)) {
            path.remove_prefix(prefix.size() - 1);
            break;
        }
    }
    const std::string plain(path);
    if (std::string real = real_path(plain); !real.empty())
        return real;
    const std::unique_ptr<char, void (*)(void*)> unescaped(xmlURIUnescapeString(plain.c_str(), 0, nullptr), xmlFree);
    return unescaped ? real_path(unescaped.get()) : "";
}

} // namespace

struct EntityGuard::Loader {
    static xmlParserInputPtr load(const char* address, const char* /*public_id*/, xmlParserCtxtPtr context) {
        EntityGuard& guard = *current_guard;
        if (!address)
            return nullptr;
        if (!guard.m_document_opened) {
            guard.m_document_opened = true;
            return xmlNewInputFromFile(context, guard.m_is_standard_input ? "-" : as_path(guard.m_document).c_str());
        }
        const std::string path = local_path(address);
        if (!guard.m_folder.empty() && path.starts_with(guard.m_folder) && is_regular_file(path))
            return xmlNewInputFromFile(context, path.c_str());
        guard.m_refused("external entity not read, it is no regular file below the document's folder: " +
                        std::string(address));
        return nullptr;
    }

    /// A local name that looks like an address ("http://x") must stay a local name.
    static std::string as_path(const std::string& name) { return name.starts_with('/') ? name : "./" + name; }
};

EntityGuard::EntityGuard(const std::string& document, log4cpp::Category* pcat)
    : EntityGuard(document, [document, pcat](const std::string& message) {
          if (pcat)
              pcat->error(document + ": " + message);
      }) {}

EntityGuard::EntityGuard(const std::string& document, Listener refused)
    : EntityGuard(document, std::move(refused), false) {}

EntityGuard::EntityGuard(const std::string& document, Listener refused, bool is_standard_input)
    : m_document(document), m_folder(is_standard_input ? "" : folder_of(document)), m_refused(std::move(refused)),
      m_is_standard_input(is_standard_input), m_pprevious_guard(current_guard),
      m_pprevious_loader(reinterpret_cast<void*>(xmlGetExternalEntityLoader())) {
    current_guard = this;
    xmlSetExternalEntityLoader(&Loader::load);
}

EntityGuard::~EntityGuard() {
    xmlSetExternalEntityLoader(reinterpret_cast<xmlExternalEntityLoader>(m_pprevious_loader));
    current_guard = m_pprevious_guard;
}

} // namespace zelvor
