// An XML document whose elements are read as words of a treebank, of a TEI text and of a stand-off annotation, and the
// text that the last of these refers to.
#include "fuzz/fuzz.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/entity_guard.h"
#include "utils/common_utils/utf8.h"
#include "utils/common_utils/xml.h"

#include <libxml++/libxml++.h>

#include <algorithm>
#include <stdexcept>

namespace zelvor::fuzz {
namespace {

std::string attribute(const xmlpp::Element& element, const char* name) {
    return element.get_attribute_value(name).raw();
}

void check_ldt(xmlpp::Element& element) {
    LexicalEntry entry("", "", "before");
    entry.parse_ldt(&element, false);
    const std::string lemma = attribute(element, "lemma"), tag = attribute(element, "postag").substr(0, 1);
    require_equal(entry.get_abbreviated_word_form(), attribute(element, "form"), "a form stands as it is");
    require_equal(entry.get_lemma(), lemma.size() > 1 ? lemma.substr(0, lemma.size() - 1) : lemma,
                  "a lemma is numbered");
    require((entry.get_pos() == "before") ==
                (tag.empty() || std::string_view("nvtadcpmieru").find(tag) == std::string_view::npos),
            "a tag is known by its first letter", tag);
}

void check_tei(xmlpp::Element& element) {
    LexicalEntry entry;
    entry.parse_tei(&element);
    require_equal(entry.get_lemma(), attribute(element, "lemma"), "the lemma of a TEI word");
    require_equal(entry.get_pos(), attribute(element, "type"), "its tag");
    require_equal(entry.get_function(), attribute(element, "function"), "its function");
    require_equal(entry.get_abbreviated_word_form(), get_text_node_contents(&element), "its own text is its form");
    require(is_valid_utf8(entry.get_abbreviated_word_form()), "XML is UTF-8", entry.get_abbreviated_word_form());
}

void check_oanc(xmlpp::Element& element, const std::string& text) {
    BaseLexicalEntry entry;
    const std::u32string characters = decode_utf8(text);
    const auto from = static_cast<std::uint32_t>(std::atoi(attribute(element, "from").c_str()));
    const auto to = static_cast<std::uint32_t>(std::atoi(attribute(element, "to").c_str()));
    try {
        entry.parse_oanc(&element, text);
    } catch (const std::out_of_range&) {
        require(from > characters.size(), "only a span beyond the end is refused", text);
        return;
    }
    require(from <= characters.size(), "a span beyond the end is refused", text);
    const std::u32string expected = characters.substr(from, to - from);
    const std::u32string found = decode_utf8(entry.get_abbreviated_word_form());
    const bool is_near = found == expected || (from < characters.size() && characters.find(found, from) <= from + 3);
    require(is_near, "a form stands at its span, or a little behind", text);
    require(found == expected || !is_valid_utf8(text) || !encode_utf8(expected).starts_with(entry.get_lemma()),
            "the lemma's own span stays", text);
}

void check_elements(xmlpp::Element& element, const std::string& text, int depth) {
    check_ldt(element);
    check_tei(element);
    check_oanc(element, text);
    for (xmlpp::Node* const child : element.get_children())
        if (auto* const inner = dynamic_cast<xmlpp::Element*>(child); inner && depth < 20)
            check_elements(*inner, text, depth + 1);
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor;
    const auto [xml, text] = fuzz::halves(data, size);
    const fuzz::MemoryFile file(xml);
    xmlpp::DomParser parser;
    try {
        const EntityGuard guard(file.path(), nullptr);
        parser.parse_file(file.path());
    } catch (const std::exception&) {
        return 0;
    }
    if (parser.get_document()->get_root_node())
        fuzz::check_elements(*parser.get_document()->get_root_node(), text, 0);
    return 0;
}
