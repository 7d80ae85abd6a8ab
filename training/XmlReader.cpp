#include "training/XmlReader.h"

#include "training/CostlyErrors.h"
#include "utils/common_utils/entity_guard.h"
#include "utils/common_utils/text.h"

#include <glibmm/exception.h>
#include <libxml++/parsers/saxparser.h>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/uri.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zelvor {

namespace {

bool is_lack_of_memory(const xmlError* error) { return error && error->code == XML_ERR_NO_MEMORY; }

std::string_view as_text(const xmlChar* text, int length) {
    return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)};
}

/// Gathers, while it lives, the messages of the XML library in this thread that belong to no parser, such as of a
/// failed read.
class MessageCollector {
public:
    MessageCollector() {
        m_text.reserve(2 * MAX_BYTES); // append must not throw
        xmlSetGenericErrorFunc(this, &append);
    }
    ~MessageCollector() { xmlSetGenericErrorFunc(nullptr, nullptr); }
    MessageCollector(const MessageCollector&) = delete;
    MessageCollector& operator=(const MessageCollector&) = delete;

    std::string text() const { return std::string(trimmed(m_text)); }
    bool tells_lack_of_memory() const { return m_tells_lack_of_memory; }

private:
    static constexpr std::size_t MAX_BYTES = 1000;

    static void append(void* collector, const char* format, ...)
        __attribute__((format(printf, 2, 3))) { // piece by piece
        std::array<char, MAX_BYTES> piece{};
        va_list arguments;
        va_start(arguments, format);
        std::vsnprintf(piece.data(), piece.size(), format, arguments);
        va_end(arguments);
        auto& messages = *static_cast<MessageCollector*>(collector);
        if (is_lack_of_memory(xmlGetLastError()))
            messages.m_tells_lack_of_memory = true;
        if (messages.m_text.size() < MAX_BYTES)
            messages.m_text += piece.data();
    }

    std::string m_text;
    bool m_tells_lack_of_memory = false;
};

} // namespace

std::string_view XmlAttributes::value(std::string_view name) const {
    std::string_view found;
    for_each([&](std::string_view attribute, std::string_view value) {
        if (attribute == name)
            found = value;
    });
    return found;
}

int reading_error(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0)
        return errno;
    return S_ISDIR(status.st_mode) ? EISDIR : 0;
}

std::string to_string(const XmlPlace& place, const std::string& document) {
    return (place.file.empty() ? document : place.file) + (place.line > 0 ? ":" + std::to_string(place.line) : "");
}

/// Takes elements and text from the XML library directly, which hands them over as lists of copies otherwise.
class XmlReader::Parser : public xmlpp::SaxParser {
public:
    Parser(XmlHandler& handler, Listener listener) : m_handler(&handler), m_listener(std::move(listener)) {
        set_substitute_entities(true);
    }

    void read(const std::string& path);
    void set_handler(XmlHandler& handler) { m_handler = &handler; }
    void stop(std::exception_ptr reason);
    XmlPlace place() const;

    void on_start_document() override;
    void on_error(const Glib::ustring& text) override;
    void on_fatal_error(const Glib::ustring& text) override { on_error(text); }
    /// Ignored: the base would refuse an entity that an earlier document has declared, and lose the whole file.
    void on_entity_declaration(const Glib::ustring& /*name*/, xmlpp::XmlEntityType /*type*/,
                               const Glib::ustring& /*public_id*/, const Glib::ustring& /*system_id*/,
                               const Glib::ustring& /*content*/) override {}

private:
    /// What the XML library calls. No exception may leave this; the first one ends the document instead.
    template<typename Use>
    static void run(void* context, Use use) {
        const auto current = static_cast<xmlParserCtxtPtr>(context);
        // the document's, in its entities, too
        auto& parser = *static_cast<Parser*>(static_cast<xmlpp::Parser*>(current->_private));
        parser.m_current = current;
        try {
            if (++parser.m_calls % CALLS_A_LOOK == 0 && parser.m_listener.look && !parser.m_thrown)
                parser.m_listener.look();
            if (!parser.m_thrown)
                use(*parser.m_handler);
        } catch (...) {
            parser.m_thrown = std::current_exception();
        }
        if (!parser.m_thrown)
            return;
        xmlStopParser(current);
        xmlStopParser(parser.context_); // the entities between the two end at their next call
    }

    static void begin_element(void* context, const xmlChar* name, const xmlChar** attributes) {
        run(context, [&](XmlHandler& handler) {
            handler.begin_element(reinterpret_cast<const char*>(name), XmlAttributes(attributes));
        });
    }

    static void end_element(void* context, const xmlChar* name) {
        run(context, [&](XmlHandler& handler) { handler.end_element(reinterpret_cast<const char*>(name)); });
    }

    static void characters(void* context, const xmlChar* text, int length) {
        run(context, [&](XmlHandler& handler) { handler.text(as_text(text, length)); });
    }

    static void cdata_block(void* context, const xmlChar* text, int length) {
        run(context, [&](XmlHandler& handler) { handler.cdata(as_text(text, length)); });
    }

    std::string parse(const std::string& path);

    XmlHandler* m_handler;
    Listener m_listener;
    bool m_has_error = false; ///< of this document's XML, told
    bool m_has_fatal_error = false;
    bool m_has_endless_attribute = false;
    static constexpr unsigned int CALLS_A_LOOK = 1024;
    unsigned int m_calls = 0;
    _xmlParserCtxt* m_current = nullptr; ///< the document's or an entity's parser, within what it calls
    std::exception_ptr m_thrown;         ///< by the handler or for lack of memory, on its way out of the XML library
    CostlyErrors m_costly_errors;
};

void XmlReader::Parser::read(const std::string& path) {
    m_has_error = m_has_fatal_error = m_has_endless_attribute = false;
    m_current = nullptr;
    const int error = path == "-" ? 0 : reading_error(path);
    std::string fault = error == 0 ? "" : std::strerror(error);
    if (fault.empty()) {
        const MessageCollector messages;
        fault = parse(path);
        if (messages.tells_lack_of_memory() && !m_thrown)
            m_thrown = std::make_exception_ptr(std::bad_alloc());
        else if (const std::string text = messages.text(); !text.empty())
            fault = text;
    }
    m_current = nullptr;
    if (!fault.empty())
        m_listener.fault({}, fault);
    if (const std::exception_ptr thrown = std::exchange(m_thrown, nullptr))
        std::rethrow_exception(thrown);
}

/// What kept the document from being read at all, or nothing.
std::string XmlReader::Parser::parse(const std::string& path) {
    const EntityGuard guard =
        path == "-" ? EntityGuard::for_standard_input(m_listener.refused) : EntityGuard(path, m_listener.refused);
    try {
        parse_file(path);
        guard.rethrow();
    } catch (const xmlpp::parse_error&) { // reported already, or but a warning
    } catch (const xmlpp::exception& error) {
        return error.what();
    } catch (const Glib::Exception& error) {
        return error.what().raw();
    }
    return "";
}

void XmlReader::Parser::stop(std::exception_ptr reason) {
    if (!m_thrown)
        m_thrown = std::move(reason);
}

void XmlReader::Parser::on_start_document() {
    m_costly_errors.begin_document();
    context_->sax->startElement = begin_element;
    context_->sax->endElement = end_element;
    context_->sax->characters = characters;
    context_->sax->ignorableWhitespace = characters;
    context_->sax->cdataBlock = cdata_block;
}

void XmlReader::Parser::on_error(const Glib::ustring& text) {
    m_current = faulty_context(context_);
    const xmlError* const error = xmlGetLastError();
    const bool is_fatal = error && error->level == XML_ERR_FATAL;
    try { // what leaves this would stop the parser, where it may read on in a text that stopping has freed
        // The XML library tells it also behind an attribute that is too long for it.
        if (is_lack_of_memory(error) && !m_has_endless_attribute && !m_thrown)
            throw std::bad_alloc();
        m_has_endless_attribute = error && error->code == XML_ERR_ATTRIBUTE_NOT_FINISHED;
        if (!m_thrown && (!m_has_error || (is_fatal && !m_has_fatal_error))) {
            m_has_error = true;
            m_has_fatal_error = is_fatal;
            m_listener.fault(place(), std::string(trimmed(text.raw())));
        }
    } catch (...) {
        m_thrown = std::current_exception();
    }
    m_costly_errors.add(context_);
}

XmlPlace XmlReader::Parser::place() const {
    const bool is_in_entity = m_current != context_ && m_current && m_current->input && m_current->input->filename;
    const xmlParserCtxtPtr context = is_in_entity ? m_current : context_;
    XmlPlace place;
    if (is_in_entity) { // by an address; that of the document is escaped, see EntityGuard
        const std::unique_ptr<char, void (*)(void*)> file(xmlURIUnescapeString(m_current->input->filename, 0, nullptr),
                                                          xmlFree);
        place.file = file ? file.get() : m_current->input->filename;
    }
    place.line = context ? xmlSAX2GetLineNumber(context) : 0;
    return place;
}

XmlReader::XmlReader(XmlHandler& handler, Listener listener) {
    [[maybe_unused]] static const bool is_initialized = (xmlInitParser(), true); // by one thread, before all parsing
    m_parser = std::make_unique<Parser>(handler, std::move(listener));
}

XmlReader::~XmlReader() = default;

void XmlReader::read(const std::string& path) { m_parser->read(path); }

void XmlReader::set_handler(XmlHandler& handler) { m_parser->set_handler(handler); }

void XmlReader::stop(std::exception_ptr reason) { m_parser->stop(std::move(reason)); }

XmlPlace XmlReader::place() const { return m_parser->place(); }

} // namespace zelvor
