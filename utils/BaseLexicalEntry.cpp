#include "utils/BaseLexicalEntry.h"

#include "utils/common_utils/text.h"

#include <ostream>

namespace zelvor {

namespace {

std::string abbreviate(const std::string& word_form, const std::string& lemma) {
    return word_form.starts_with(lemma) ? "-" + word_form.substr(lemma.size()) : word_form;
}

} // namespace

BaseLexicalEntry::BaseLexicalEntry(const std::string& lemma, const std::string& word_form, const std::string& pos)
    : WordFormContainer(abbreviate(word_form, lemma)), m_lemma(lemma), m_pos(pos) {}

std::string BaseLexicalEntry::get_word_form() const {
    return m_word_form.starts_with('-') ? m_lemma + m_word_form.substr(1) : m_word_form;
}

void BaseLexicalEntry::set_word_form(const std::string& word_form) {
    const bool abbreviated = !m_lemma.empty() || word_form.empty();
    m_word_form = abbreviated ? abbreviate(word_form, m_lemma) : word_form;
}

void BaseLexicalEntry::parse(const std::string& line) {
    const std::vector<std::string_view> fields = split_fields(line, "\t#");
    parse_tokens({fields.begin(), fields.end()});
}

std::string BaseLexicalEntry::get_lemma() const { return m_lemma; }

std::string BaseLexicalEntry::get_abbreviated_word_form() const { return m_word_form; }

void BaseLexicalEntry::parse_tokens(const std::vector<std::string>& tokens) {
    m_word_form.clear();
    m_lemma.clear();
    m_lemma_pos.clear();
    m_pos.clear();
    if (tokens.size() < 2) // kept: a lone word form is not stored
        return;
    m_lemma = trimmed(tokens[1]);
    set_word_form(std::string(trimmed(tokens[0])));
    if (tokens.size() > 2)
        m_lemma_pos = tokens[2];
    if (tokens.size() > 3)
        m_pos = tokens[3];
}

void BaseLexicalEntry::set_lemma(const std::string& lemma) {
    const std::string stored = m_word_form;
    m_lemma = lemma;
    set_word_form(stored);
}

bool BaseLexicalEntry::operator<(const BaseLexicalEntry& other) const {
    if (const int order = get_word_form().compare(other.get_word_form()); order != 0)
        return order < 0;
    if (const int order = get_lemma().compare(other.get_lemma()); order != 0)
        return order < 0;
    return m_pos < other.m_pos;
}

void write_set(std::set<std::string>& values, std::ostream& os) {
    if (!values.empty())
        os << convert_list_to_string(values.begin(), values.end(), ",");
}

std::ostream& operator<<(std::ostream& os, BaseLexicalEntry& entry) {
    return os << entry.get_word_form() << '\t' << entry.get_lemma() << '\t' << entry.get_pos() << '\t';
}

} // namespace zelvor
