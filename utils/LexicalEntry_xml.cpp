#include "utils/LexicalEntry.h"

#include "utils/common_utils/xml.h"

#include <libxml++/libxml++.h>

#include <iostream>
#include <string_view>
#include <utility>

namespace zelvor {

void LexicalEntry::parse_ldt(xmlpp::Element* pel, bool /*autocorrect*/) {
    // First letter of the positional tag, and the part of speech that it stands for.
    static constexpr std::pair<std::string_view, std::string_view> pos_conversion[] = {
        {"n", "NN"},  {"v", "V"},   {"t", "VP"},  {"a", "ADJ"},  {"d", "ADV"}, {"c", "CON"}, {"p", "P"},
        {"m", "NUM"}, {"i", "ITJ"}, {"e", "ITJ"}, {"r", "APPR"}, {"u", "$,"},  {"", ""}};
    if (!pel)
        return;
    m_word_form = pel->get_attribute_value("form").raw();
    m_lemma = pel->get_attribute_value("lemma").raw();
    if (m_lemma.size() > 1)
        m_lemma.pop_back(); // kept: a homonym mark is assumed, whatever the byte is
    const std::string tag = pel->get_attribute_value("postag").raw().substr(0, 1);
    std::cout << "pos: " << tag << std::endl;
    const auto* row = pos_conversion;
    while (!row->first.empty() && row->first != tag)
        ++row;
    if (!row->first.empty())
        m_pos = row->second;
    std::cout << "mpos: " << m_pos << std::endl;
}

void LexicalEntry::parse_tei(xmlpp::Element* pelement) {
    if (!pelement)
        return;
    m_pos = pelement->get_attribute_value("type").raw();
    m_lemma = pelement->get_attribute_value("lemma").raw();
    m_function = pelement->get_attribute_value("function").raw();
    m_word_form = get_text_node_contents(pelement);
}

void LexicalEntry::parse_german(const std::string& /*line*/) { std::cerr << "not implemented yet" << std::endl; }

} // namespace zelvor
