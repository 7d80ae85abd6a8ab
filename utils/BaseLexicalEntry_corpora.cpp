#include "utils/BaseLexicalEntry.h"

#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"

#include <boost/regex.hpp>
#include <libxml++/libxml++.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace zelvor {

namespace {

/// A text addressed by code points without decoding all of it for every token: positions are found by walking on from
/// the last one, or from where the last substring began.
class CodePoints {
public:
    static constexpr char32_t NONE = 0xFFFFFFFF;

    explicit CodePoints(std::string_view text) : m_text(text) {}

    /// The code point at a position; NONE at or beyond the end.
    char32_t at(std::uint32_t position) {
        return seek(position) && m_here.byte < m_text.size() ? decode_character(m_text, m_here.byte).code_point : NONE;
    }

    bool contains(std::uint32_t position) { return at(position) != NONE; }

    /// As std::string::substr, in code points: a start beyond the end throws std::out_of_range, a length is cut.
    std::string substr(std::uint32_t from, std::uint32_t length) {
        if (!seek(from))
            throw std::out_of_range("span begins beyond the end of the text");
        m_anchor = m_here;
        const std::size_t begin = m_here.byte;
        for (std::uint32_t i = 0; i < length && step(); ++i) {
        }
        return std::string(m_text.substr(begin, m_here.byte - begin));
    }

private:
    struct Place {
        std::uint32_t position = 0;
        std::size_t byte = 0;
    };

    bool step() {
        if (m_here.byte == m_text.size())
            return false;
        m_here.byte += decode_character(m_text, m_here.byte).length;
        ++m_here.position;
        return true;
    }

    /// Whether eight ASCII characters follow; most of a text is read in such strides.
    bool is_stride() const {
        std::uint64_t bytes = 0x80;
        if (m_text.size() - m_here.byte >= sizeof bytes)
            std::memcpy(&bytes, m_text.data() + m_here.byte, sizeof bytes);
        return (bytes & 0x8080808080808080U) == 0;
    }

    /// False when the position lies beyond the end (the end itself can be reached).
    bool seek(std::uint32_t position) {
        if (position < m_here.position)
            m_here = position < m_anchor.position ? Place{} : m_anchor;
        while (position - m_here.position >= 8 && is_stride()) {
            m_here.position += 8;
            m_here.byte += 8;
        }
        while (m_here.position < position && step()) {
        }
        return m_here.position == position;
    }

    std::string_view m_text;
    Place m_here;
    Place m_anchor;
};

/// Moves a span that begins `distance` characters before its word; the end follows where a letter was cut off.
void move_span(CodePoints& text, std::uint32_t& from, std::uint32_t& to, std::uint32_t distance) {
    const char32_t first = text.at(from);
    if (is_number_or_letter(first) || first == '\'' || !text.contains(from + distance))
        return;
    if (distance == 2 && is_number_or_letter(text.at(from + 1)))
        return;
    if (!is_number_or_letter(text.at(from + distance)))
        return;
    from += distance;
    // Kept: the longer step tests the character after the end, the shorter one the character at it.
    if (text.contains(to + distance) && is_number_or_letter(text.at(to + distance - 1)))
        to += distance;
}

} // namespace

void BaseLexicalEntry::parse_susanne(const std::string& line) {
    static constexpr std::pair<std::string_view, std::string_view> pos_conversion[] = {
        {"PPH01m", "PRP"}, {"APPGm", "PPOSAT"}, {"NN1c", "NN"}, {"NP1f", "NNP"}, {"VBR", "AUX"}, {"RR", "RB"},
        {"CCr", "CC"},     {"NP1s", "NNP"},     {"AT1", "DT"},  {"VV0v", "VB"},  {"", ""}};
    static const boost::regex expression("([^\t]*)\t([^\t]*)\t([^\t]*)\t([^\t]*)\t([^\t]*)\t([^\t]*)");
    boost::smatch fields;
    if (!boost::regex_match(line, fields, expression)) {
        std::cout << line << std::endl;
        std::exit(10);
    }
    m_word_form = fields[4];
    m_lemma = fields[5];
    m_pos = fields[3];
    const auto* row = pos_conversion;
    while (!row->first.empty() && row->first != m_pos)
        ++row;
    if (!row->first.empty())
        m_pos = row->second;
}

void BaseLexicalEntry::parse_oanc(xmlpp::Element* pel, const Glib::ustring& text) {
    if (!pel)
        return;
    const std::string start = pel->get_attribute_value("from").raw();
    const std::string end = pel->get_attribute_value("to").raw();
    std::cout << "sfrom: " << start << '\n' << "sto: " << end << '\n';
    for (const xmlpp::Node* node : pel->get_children()) {
        const auto* const child = dynamic_cast<const xmlpp::Element*>(node);
        if (!child)
            continue;
        const std::string name = child->get_attribute_value("name").raw();
        if (name == "base")
            m_lemma = child->get_attribute_value("value").raw();
        else if (name == "msd")
            m_pos = child->get_attribute_value("value").raw();
    }
    auto from = static_cast<std::uint32_t>(std::atoi(start.c_str()));
    auto to = static_cast<std::uint32_t>(std::atoi(end.c_str()));
    CodePoints characters(text.raw());
    m_word_form = characters.substr(from, to - from);
    if (m_word_form.starts_with(m_lemma))
        return;
    move_span(characters, from, to, 1);
    move_span(characters, from, to, 2);
    m_word_form = characters.substr(from, to - from);
}

} // namespace zelvor
