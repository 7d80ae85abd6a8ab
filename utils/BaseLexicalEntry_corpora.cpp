#include "utils/BaseLexicalEntry.h"

#include "utils/common_utils/code_points.h"
#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"

#include <boost/regex.hpp>
#include <libxml++/libxml++.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string_view>
#include <utility>

namespace zelvor {

namespace {

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
    CodePoints characters(text.raw());
    parse_oanc(pel, characters);
}

void BaseLexicalEntry::parse_oanc(xmlpp::Element* pel, CodePoints& text) {
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
    m_word_form = text.substr(from, to - from);
    if (m_word_form.starts_with(m_lemma))
        return;
    move_span(text, from, to, 1);
    move_span(text, from, to, 2);
    m_word_form = text.substr(from, to - from);
}

} // namespace zelvor
