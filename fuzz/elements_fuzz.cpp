// An XML document whose elements are read as words of a treebank, of a TEI text and of a stand-off annotation, and the
// text that the last of these refers to.
#include "fuzz/fuzz.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/entity_guard.h"
#include "utils/common_utils/utf8.h"

#include <libxml++/libxml++.h>

namespace zelvor::fuzz {

void check(xmlpp::Element& element, const std::string& text, int depth) {
    LexicalEntry word;
    word.parse_ldt(&element, false);
    require_equal(word.get_abbreviated_word_form(), element.get_attribute_value("form").raw(),
                  "a form stands as it is");
    word.parse_tei(&element);
    require(is_valid_utf8(word.get_abbreviated_word_form()), "XML is UTF-8", word.get_abbreviated_word_form());
    BaseLexicalEntry span;
    const auto from = static_cast<std::uint32_t>(std::atoi(element.get_attribute_value("from").c_str()));
    require(succeeds([&] { span.parse_oanc(&element, text); }) == (from <= decode_utf8(text).size()),
            "only a span that begins beyond the end is refused", text);
    require(text.find(span.get_abbreviated_word_form()) != text.npos || !is_valid_utf8(text), "a span is of the text",
            span.get_abbreviated_word_form());
    for (xmlpp::Node* const child : element.get_children())
        if (auto* const inner = dynamic_cast<xmlpp::Element*>(child); inner && depth < 20)
            check(*inner, text, depth + 1);
}

} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor;
    const auto [xml, text] = fuzz::halves(data, size);
    const fuzz::MemoryFile file(xml);
    const EntityGuard guard(file.path(), nullptr);
    xmlpp::DomParser parser;
    if (fuzz::succeeds<std::exception>([&] { parser.parse_file(file.path()); }) &&
        parser.get_document()->get_root_node())
        fuzz::check(*parser.get_document()->get_root_node(), text, 0);
    return 0;
}
