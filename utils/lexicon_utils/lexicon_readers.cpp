#include "utils/lexicon_utils/lexicon_readers.h"

#include "utils/LexicalEntry.h"
#include "utils/common_utils/files.h"
#include "utils/common_utils/text.h"

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace zelvor {

const std::string CASE_MAPPING[][2] = {{"us", "NOMINATIVE,VOCATIVE"},
                                       {"a", "NOMINATIVE,ACCUSATIVE,VOCATIVE"},
                                       {"i", "NOMINATIVE"},
                                       {"um", "ACCUSATIVE"},
                                       {"o", "DATIVE,ABLATIVE"},
                                       {"orum", "GENITIVE"},
                                       {"arum", "GENITIVE"},
                                       {"ibus", "DATIVE,ABLATIVE"},
                                       {"", ""}};

namespace {

bool is_name_tag(std::string_view pos) { return pos == "NE" || pos == "NP" || pos == "NNP"; }

/// False when the directory cannot be opened, which is reported.
bool read_names(const std::string& directory_name, std::set<std::string>& names, std::set<std::string>& all_names) {
    const FolderErrors errors = for_each_name_or_print(directory_name, [&](const std::string& filename) {
        const std::string path = directory_name + "/" + filename;
        std::cout << "filename: " << path << std::endl;
        if (!vends_with(path, ".lst"))
            return;
        for_each_line(path, [&](const std::string& name) {
            names.insert(name);
            all_names.insert(name);
        });
    });
    return errors.opening == 0;
}

} // namespace

void parse(const std::string& line, std::string& lemma, std::string& word_form, std::string& pos) {
    const std::vector<std::string_view> fields = split_tokens(line, "\t");
    word_form = fields.at(0);
    lemma = fields.at(1);
    pos = fields.at(2);
    for (std::string* const text : {&word_form, &lemma, &pos})
        *text = trimmed(*text);
}

void get_words_from_lexicon(const std::string& lexicon_filename, std::set<std::string>& lemmas) {
    std::string lemma, word_form, pos;
    for_each_line(lexicon_filename, [&](const std::string& line) {
        parse(line, lemma, word_form, pos);
        lemmas.insert(lemma);
        lemmas.insert(word_form);
    });
}

void read_statistics(const std::string& filename, std::map<std::string, int>& map_occurrence,
                     std::set<int>& set_numbers) {
    for_each_line(filename, [&](const std::string& line) {
        const std::string record(trimmed(line));
        if (record.empty())
            return;
        const std::size_t equals = record.rfind('=');
        const int count = std::atoi(record.c_str() + (equals == std::string::npos ? 0 : equals + 1));
        map_occurrence.emplace(record.substr(0, equals), count);
        set_numbers.insert(count);
    });
}

void read_lexicon(const std::string& lexicon_filename, const std::string& name_directory, std::set<std::string>& names,
                  std::multimap<std::string, LexicalEntry*>& map_word_form_to_lexical_entry) {
    std::cout << "input_directory" << name_directory << std::endl;
    std::set<std::string> all_names;
    if (!name_directory.empty() && !read_names(name_directory, names, all_names))
        return;
    for_each_line(lexicon_filename, [&](const std::string& line) {
        const std::vector<std::string_view> fields = split_tokens(line, "\t");
        if (fields.size() < 3)
            return;
        const std::string word_form(fields[0]), lemma(fields[1]), pos(fields[2]);
        if (is_name_tag(pos))
            all_names.insert(lemma);
        map_word_form_to_lexical_entry.emplace(word_form, new LexicalEntry(lemma, word_form, pos));
    });
    std::cout << "all names: " << all_names.size() << std::endl;
}

void get_cases_from_word_form(const std::string& word_form, std::set<std::string>& cases) {
    for (const auto* row = CASE_MAPPING; !(*row)[0].empty(); ++row)
        if (vends_with(word_form, (*row)[0]))
            tokenize_arg_set((*row)[1], ",", cases);
}

bool get_cases_from_lexicon(const std::string& word_form,
                            const std::multimap<std::string, LexicalEntry*>& map_pentry_representation,
                            std::set<std::string>& cases) {
    const auto [first, last] = map_pentry_representation.equal_range(word_form);
    if (first == last)
        return false;
    // Kept: it is always the first entry that is looked at, and only its missing case is taken.
    if (first->second && first->second->get_case().empty())
        cases.insert("");
    return true;
}

} // namespace zelvor
