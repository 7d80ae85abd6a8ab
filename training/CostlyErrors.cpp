#include "training/CostlyErrors.h"

#include <libxml/parser.h>

#include <cstring>

namespace zelvor {

namespace {

constexpr std::size_t MAX_COPIED_BYTES = std::size_t{64} * 1024 * 1024;

} // namespace

_xmlParserCtxt* faulty_context(_xmlParserCtxt* document) {
    const xmlError* const error = document ? xmlGetLastError() : nullptr;
    const bool is_known = error && error->domain == XML_FROM_PARSER && error->ctxt;
    return is_known ? static_cast<xmlParserCtxtPtr>(error->ctxt) : document;
}

void CostlyErrors::add(_xmlParserCtxt* document) {
    const xmlError* const error = xmlGetLastError();
    // Only these: after other errors the XML library may read on in a text that stopping has freed.
    if (!error || !error->str1)
        return;
    m_copied_bytes += std::strlen(error->str1);
    if (const xmlParserCtxtPtr context = faulty_context(document);
        m_copied_bytes > MAX_COPIED_BYTES && context && context->disableSAX)
        xmlStopParser(context);
}

} // namespace zelvor
