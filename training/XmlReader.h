#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace zelvor {

/// What follows the prefix of an element's name.
inline std::string_view local_name(std::string_view name) { return name.substr(name.rfind(':') + 1); }

/// The attributes of one element, names as written, as long as the call that hands them over.
class XmlAttributes {
public:
    explicit XmlAttributes(const unsigned char** attributes) : m_attributes(attributes) {}

    /// use(name, value) for each, in the order of the document.
    template<typename Use>
    void for_each(Use use) const {
        for (const unsigned char** it = m_attributes; it && *it; it += 2)
            if (it[1])
                use(text(it[0]), text(it[1]));
    }

    /// Empty where there is none of this name.
    std::string_view value(std::string_view name) const;

private:
    static std::string_view text(const unsigned char* text) { return reinterpret_cast<const char*>(text); }

    const unsigned char** m_attributes; ///< names and values in turn, up to a null; or null
};

/// What the elements of documents are handed to. Names have their prefix; every view lives as long as the call. After a
/// fault that ends a document, elements that are open do not end, and more text may come.
class XmlHandler {
public:
    virtual ~XmlHandler() = default;
    virtual void begin_element(std::string_view name, const XmlAttributes& attributes) = 0;
    virtual void end_element(std::string_view name) = 0;
    virtual void text(std::string_view text) = 0; ///< in pieces
    virtual void cdata(std::string_view text) = 0;
};

/// A place in a document.
struct XmlPlace {
    std::string file; ///< of an external entity; empty: the document itself
    long line = 0;    ///< 0: of all of it
};

/// "FILE:LINE", or what of it there is; `document` where the place names no file.
std::string to_string(const XmlPlace& place, const std::string& document);

/// The system's number of what keeps a path from being read; 0 for any readable file, a pipe included.
int reading_error(const std::string& path);

/// Reads documents one after the other as a stream, entities expanded: external ones only from regular files at or
/// below the document's folder, none for standard input. Several readers may read at the same time, each in a thread of
/// its own.
class XmlReader {
public:
    /// What is wrong with the document itself; none may be empty or throw.
    struct Listener {
        /// Of the faults of its XML the first is told, and the first that ends it; the others mostly follow from these.
        std::function<void(const XmlPlace& place, const std::string& message)> fault;
        /// An external entity that is not read; its text is missing.
        std::function<void(const std::string& message)> refused;
        /// Called now and then while there is something to hand over; may throw as the handler may. May be empty.
        std::function<void()> look = {};
    };

    /// The handler must live as long as the reader.
    XmlReader(XmlHandler& handler, Listener listener);
    ~XmlReader();
    XmlReader(const XmlReader&) = delete;
    XmlReader& operator=(const XmlReader&) = delete;

    /// Reads the document at a path, or standard input for "-". What the handler throws, what stop() was given and
    /// std::bad_alloc leave it, at the end.
    void read(const std::string& path);

    /// What follows goes to this one instead, which must live as long.
    void set_handler(XmlHandler& handler);

    /// Ends the document; read() then throws this, unless something else was thrown before.
    void stop(std::exception_ptr reason);

    /// Within the calls of handler and listener: where the parser is.
    XmlPlace place() const;

private:
    class Parser;

    std::unique_ptr<Parser> m_parser;
};

} // namespace zelvor
