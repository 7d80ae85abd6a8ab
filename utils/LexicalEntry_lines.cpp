#include "utils/LexicalEntry_tables.h"
#include "utils/common_utils/text.h"

#include <iostream>
#include <string_view>

namespace zelvor {

namespace {

constexpr const char* PERSONS[][2] = {
    {"FIRST_PERSON", "PERSON_1"}, {"SECOND_PERSON", "PERSON_2"}, {"THIRD_PERSON", "PERSON_3"}};

void convert_person(std::string& person) {
    for (const auto& [name, converted] : PERSONS) {
        if (person == name) {
            person = converted;
            return;
        }
    }
}

constexpr std::string_view SEPARATOR = "\t#";

void append(std::string& line, const std::string& field) { line.append(field).append(SEPARATOR); }

std::string joined(const std::set<std::string>& values) {
    return convert_list_to_string(values.begin(), values.end(), ",");
}

} // namespace

std::vector<std::string_view> LexicalEntry::read_line(const std::string& line, int reader) {
    for (const Tables::Field field : Tables::EMPTIED_FIRST)
        (this->*field).clear();
    std::vector<std::string_view> fields = split_fields(line, "#");
    for (std::size_t i = 0; const auto& [field, actions] : Tables::COLUMNS) {
        const std::size_t column = i++;
        if (actions[reader] == Tables::READ)
            this->*field = trimmed(fields.at(column));
        else if (actions[reader] == Tables::CLEAR)
            std::string().swap(this->*field);
        if (field == &LexicalEntry::m_person)
            convert_person(m_person);
    }
    return fields;
}

void LexicalEntry::parse_latin(const std::string& line) {
    const std::vector<std::string_view> fields = read_line(line, Tables::FULL);
    std::size_t column = std::size(Tables::COLUMNS);
    const auto next_list = [&] { return column < fields.size() ? std::string(trimmed(fields[column++])) : ""; };
    const std::string wf_sources = next_list(), lemma_sources = next_list(), pos_sources = next_list();
    tokenize_arg_set(wf_sources, ",", m_originating_source_word_forms);
    tokenize_arg_set(lemma_sources, ",", m_originating_source_lemmas);
    tokenize_arg_set(pos_sources, ",", m_originating_source_pos);
    for (const Tables::Field field : Tables::BOOKKEEPING)
        if (column < fields.size())
            this->*field = trimmed(fields[column++]);
}

void LexicalEntry::parse_latin_tagger(const std::string& line) {
    read_line(line, Tables::TAGGER);
    if (m_mood == "GERUND" || m_mood == "GERUNDIVE")
        m_pos = "V";
}

/// Kept: the mood is emptied before gerunds could be told, so they stay what the line says.
void LexicalEntry::parse_latin_tagger_reduced(const std::string& line) { read_line(line, Tables::REDUCED); }

void LexicalEntry::export_latin(std::ostream& os) {
    std::string line;
    for (const Tables::Column& column : Tables::COLUMNS)
        append(line, column.field == &LexicalEntry::m_word_form ? get_word_form() : this->*column.field);
    for (const Tables::Set set : Tables::SOURCES)
        append(line, joined(this->*set));
    for (const Tables::Field field : Tables::BOOKKEEPING)
        append(line, this->*field);
    line.resize(line.size() - SEPARATOR.size());
    os << line << std::endl;
}

void LexicalEntry::export_german(std::ostream& os) {
    std::string line;
    for (const Tables::Field field : Tables::GERMAN)
        append(line, field == &LexicalEntry::m_word_form ? get_word_form() : this->*field);
    for (const Tables::Set set : Tables::SOURCES)
        append(line, joined(this->*set));
    append(line, m_corpus_frequency);
    os << line << std::endl;
}

} // namespace zelvor
