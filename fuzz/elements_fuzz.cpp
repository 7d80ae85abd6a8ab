// An XML document whose elements are read as words of a treebank, of a TEI text and of a stand-off annotation, and the
// text that the last of these refers to.
#include "fuzz/fuzz.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/entity_guard.h"
#include "utils/common_utils/utf8.h"

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
    std::string own_text;
    for (const xmlpp::Node* const child : element.get_children())
        if (const auto* const text = dynamic_cast<const xmlpp::TextNode*>(child))
            own_text += text->get_content().raw();
    require_equal(entry.get_abbreviated_word_form(), own_text, "its own text is its form");
    require(is_valid_utf8(entry.get_abbreviated_word_form()), "XML is UTF-8", entry.get_abbreviated_word_form());
}

bool is_alphanumeric(char32_t c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

/// Characters by their number; 0 beyond the end, which is no letter either.
char32_t at(const std::u32string& text, std::uint32_t i) { return i < text.size() ? text[i] : 0; }

/// The form at a span that may begin one or two characters before its word.
std::u32string moved_form(const std::u32string& text, std::uint32_t from, std::uint32_t to) {
    for (const std::uint32_t step : {1, 2}) {
        const bool is_between = !is_alphanumeric(at(text, from)) && at(text, from) != '\'' &&
                                (step == 1 || !is_alphanumeric(at(text, from + 1)));
        if (!is_between || from >= text.size() || !is_alphanumeric(at(text, from + step)))
            continue;
        from += step;
        if (to + step < text.size() && is_alphanumeric(at(text, to + step - 1)))
            to += step;
    }
    return text.substr(from, to - from);
}

void check_oanc(xmlpp::Element& element, const std::string& text) {
    BaseLexicalEntry entry;
    const std::u32string characters = decode_utf8(text);
    const auto from = static_cast<std::uint32_t>(std::atoi(attribute(element, "from").c_str()));
    const auto to = static_cast<std::uint32_t>(std::atoi(attribute(element, "to").c_str()));
    bool is_read = true;
    try {
        entry.parse_oanc(&element, text);
    } catch (const std::out_of_range&) {
        is_read = false;
    }
    require(is_read == (from <= characters.size()), "a span that begins beyond the end is refused", text);
    if (!is_read)
        return;
    const std::string found = encode_utf8(decode_utf8(entry.get_abbreviated_word_form()));
    const std::string at_span = encode_utf8(characters.substr(from, to - from));
    if (at_span.starts_with(entry.get_lemma()) && is_valid_utf8(text))
        require_equal(found, at_span, "where the lemma begins at the span, the span is kept");
    else if (is_valid_utf8(text))
        require_equal(found, encode_utf8(moved_form(characters, from, to)), "any other may stand a little behind");
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
