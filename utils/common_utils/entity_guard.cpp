#include "utils/common_utils/entity_guard.h"

#include "utils/common_utils/files.h"
#include "utils/logging_utils.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/uri.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <memory>
#include <mutex>
#include <string_view>

#include <sys/stat.h>

namespace zelvor {

namespace {

thread_local EntityGuard* current_guard = nullptr;

/// The loader is one for the process: the first guard of all threads puts ours in place, the last one takes it away.
std::mutex loader_mutex;
std::size_t guards = 0;
std::atomic<xmlExternalEntityLoader> previous_loader = nullptr;

std::string folder_of(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

/// The path with the links of its folder resolved, not its own; empty when there is no such folder.
std::string with_real_folder(const std::string& path) {
    const std::string folder = folder_of(path), real = real_path(folder.empty() ? "." : folder);
    return real.empty() ? "" : (real == "/" ? "" : real) + "/" + path.substr(folder.size());
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
    if (!path.starts_with('/')) // nothing says below which folder it would be
        return "";
    const std::string plain(path);
    if (std::string real = real_path(plain); !real.empty())
        return real;
    const std::unique_ptr<char, void (*)(void*)> unescaped(xmlURIUnescapeString(plain.c_str(), 0, nullptr), xmlFree);
    return unescaped ? real_path(unescaped.get()) : "";
}

} // namespace

struct EntityGuard::Loader {
    /// What the XML library calls: no exception may leave it.
    static xmlParserInputPtr load(const char* address, const char* public_id, xmlParserCtxtPtr context) {
        if (!current_guard)
            return previous_loader.load()(address, public_id, context);
        try {
            return load_if_allowed(address, context);
        } catch (...) {
            current_guard->m_thrown = std::current_exception();
            xmlStopParser(context);
            return nullptr;
        }
    }

    static xmlParserInputPtr load_if_allowed(const char* address, xmlParserCtxtPtr context) {
        EntityGuard& guard = *current_guard;
        if (!address)
            return nullptr;
        if (!guard.m_document_opened) {
            guard.m_document_opened = true;
            return guard.m_is_standard_input ? xmlNewInputFromFile(context, "-") : open(context, guard.m_document);
        }
        if (const std::string path = local_path(address); guard.is_below_document(path) && is_regular_file(path))
            return open(context, path);
        if (guard.m_refused_addresses.emplace(address).second) // the parser asks again at each reference
            guard.m_refused("external entity not read, it is no regular file below the document's folder: " +
                            std::string(address));
        return nullptr;
    }

    /// The name becomes the base of relative addresses, for which the library wants an escaped one.
    static xmlParserInputPtr open(xmlParserCtxtPtr context, const std::string& path) {
        const xmlParserInputPtr input = xmlNewInputFromFile(context, path.c_str());
        xmlChar* const escaped = input ? xmlURIEscapeStr(reinterpret_cast<const xmlChar*>(path.c_str()),
                                                         reinterpret_cast<const xmlChar*>("/"))
                                       : nullptr;
        if (escaped) {
            xmlFree(const_cast<char*>(input->filename));
            input->filename = reinterpret_cast<char*>(escaped);
        }
        return input;
    }
};

bool EntityGuard::is_below_document(const std::string& path) const {
    return std::ranges::any_of(m_folders,
                               [&](const std::string& folder) { return !folder.empty() && path.starts_with(folder); });
}

void EntityGuard::rethrow() const {
    if (m_thrown)
        std::rethrow_exception(m_thrown);
}

EntityGuard::EntityGuard(const std::string& document, log4cpp::Category* pcat)
    : EntityGuard(document, [document, pcat](const std::string& message) {
          log_message(pcat, {document, ": ", message}, log4cpp::Priority::ERROR);
      }) {}

EntityGuard::EntityGuard(const std::string& document, Listener refused)
    : EntityGuard(document, std::move(refused), false) {}

EntityGuard::EntityGuard(const std::string& document, Listener refused, bool is_standard_input)
    : m_refused(std::move(refused)), m_is_standard_input(is_standard_input), m_pprevious_guard(current_guard) {
    if (!is_standard_input) {
        m_document = with_real_folder(document);
        m_folders[0] = folder_of(m_document);
        m_folders[1] = folder_of(real_path(document));
        // The path of a very deep folder is too long to be opened, or to be had at all. "./" is not the begin of a URL.
        if (!document.starts_with('/') && (m_document.empty() || m_document.size() >= PATH_MAX))
            m_document = "./" + document;
    }
    current_guard = this;
    const std::lock_guard lock(loader_mutex);
    if (guards++ > 0)
        return;
    previous_loader = xmlGetExternalEntityLoader();
    xmlSetExternalEntityLoader(&Loader::load);
}

EntityGuard::~EntityGuard() {
    current_guard = m_pprevious_guard;
    const std::lock_guard lock(loader_mutex);
    if (--guards == 0)
        xmlSetExternalEntityLoader(previous_loader);
}

} // namespace zelvor
