#pragma once

#include <map>
#include <set>
#include <string>

/// Readers of lexicons, name lists and word statistics, and the cases of a word form. Nothing is cleared first; files
/// that cannot be opened read as empty. The formats: docs/english.md.
namespace zelvor {

class LexicalEntry;

/// Latin endings and the cases, a comma list, that each allows; a pair of empty strings ends the table.
extern const std::string CASE_MAPPING[][2];

/// Splits a lexicon line at tabs: form, lemma and tag, each trimmed. Note the order of the results. Throws
/// std::out_of_range for fewer than three fields.
void parse(const std::string& line, std::string& lemma, std::string& word_form, std::string& pos);

/// Adds the lemma and the word form of every line; throws as parse() does.
void get_words_from_lexicon(const std::string& lexicon_filename, std::set<std::string>& lemmas);

/// Reads lines "entry=count". The first count of an entry stays, every count enters set_numbers. A line without "=" is
/// taken whole for both.
void read_statistics(const std::string& filename, std::map<std::string, int>& map_occurrence,
                     std::set<int>& set_numbers);

/// Reads the lines of the .lst files of a folder (unless its name is empty) as names, then a lexicon: an entry per line
/// of three fields or more, untrimmed, filed under its word form and owned by the caller. Where the folder cannot be
/// opened, nothing at all is read. Says on standard output what it reads.
void read_lexicon(const std::string& lexicon_filename, const std::string& name_directory, std::set<std::string>& names,
                  std::multimap<std::string, LexicalEntry*>& map_word_form_to_lexical_entry);

/// Adds the cases of every ending in CASE_MAPPING that word_form has, not only those of the longest.
void get_cases_from_word_form(const std::string& word_form, std::set<std::string>& cases);

/// Whether the lexicon knows word_form. Of its cases nothing is added but the empty one, and that only where the first
/// entry has it.
bool get_cases_from_lexicon(const std::string& word_form,
                            const std::multimap<std::string, LexicalEntry*>& map_pentry_representation,
                            std::set<std::string>& cases);

} // namespace zelvor
