#pragma once

#include <cstddef>

struct _xmlParserCtxt;

namespace zelvor {

/// The parser that met the error which is being told: that of the document, or of an entity within it.
_xmlParserCtxt* faulty_context(_xmlParserCtxt* document);

/// Ends documents whose errors have become costly: the XML library copies what an error is about, be it all of a
/// comment up to two hyphens, again and again.
class CostlyErrors {
public:
    void begin_document() { m_copied_bytes = 0; }

    /// To be called while an error is told. Ends what nothing is handed over of any more, after a fatal error.
    void add(_xmlParserCtxt* document);

private:
    std::size_t m_copied_bytes = 0; ///< by the errors of this document
};

} // namespace zelvor
