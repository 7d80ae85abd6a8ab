#include "utils/lexicon_utils/lemmatizer_maps.h"

#include "utils/BaseLexicalEntry.h"
#include "utils/common_utils/files.h"
#include "utils/common_utils/numbers.h"
#include "utils/common_utils/text.h"
#include "utils/lexicon_utils/heap_maps.h"

#include <fstream>
#include <iostream>

namespace zelvor {

namespace {

void fill_line_cache(const std::string& filename, char separator, LineCache& cache) {
    for_each_line(filename, [&](const std::string& line) {
        if (const std::size_t end = line.find(separator); end != std::string::npos)
            cache.emplace(line.substr(0, end), line);
    });
}

constexpr double MAX_RARE_COUNT = 20.0; // pairs seen no more often are noise

} // namespace

void export_lemmatizer_map(const std::map<std::string, LineCache*>& map_cache, const std::string& directory) {
    for (const auto& [tag, cache] : map_cache) {
        std::ofstream file(directory + "/" + tag);
        if (!cache)
            continue;
        for (const auto& [key, line] : *cache)
            file << key << ':' << line << '\n';
    }
}

void fill_lemmatizer_hashmap(const std::string& lemmatizer_hashmap_filename, LineCache& map_lemmatizer_cache) {
    fill_line_cache(lemmatizer_hashmap_filename, '\t', map_lemmatizer_cache);
}

void fill_ocr_hashmap(const std::string& ocr_hashmap_file, LineCache& map_ocr_cache) {
    fill_line_cache(ocr_hashmap_file, ' ', map_ocr_cache);
}

void fill_lemmatizer_hashmap_allpos(const std::string& lemmatizer_directory,
                                    std::map<std::string, LineCache*>& map_lemmatizer_cache) {
    std::cout << "input_directory" << lemmatizer_directory << std::endl;
    for_each_name_or_print(lemmatizer_directory, [&](const std::string& name) {
        if (name == "." || name == "..")
            return;
        if (LineCache* const cache = find_or_create(map_lemmatizer_cache, name.substr(0, name.find('.'))))
            fill_line_cache(name, ' ', *cache); // kept: by the bare name, not below the directory
    });
}

void free_lemmatizer_map(std::map<std::string, LineCache*>& map_lemmatizer_cache) { free_inner(map_lemmatizer_cache); }

void parse_attachment_map(const std::string& filename,
                          std::map<std::pair<std::string, std::string>, double>& map_attachment) {
    for_each_line(filename, [&](const std::string& line) {
        const std::size_t colon = line.find(':');
        const std::size_t comma = line.find(',');
        if (colon == std::string::npos || comma > colon)
            return;
        std::vector<std::string> fields;
        tokenize_arg(line.substr(colon + 1), ",", fields);
        if (fields.size() < 5 || fields[4] == "nan" || fields[4] == "-nan" || fields[4] == "inf" ||
            !(convert_string_to_double(fields[0]) > MAX_RARE_COUNT))
            return;
        map_attachment.emplace(std::pair(line.substr(0, comma), line.substr(comma + 1, colon - comma - 1)),
                               convert_string_to_double(fields[4]));
    });
}

void get_possible_pos(std::vector<BaseLexicalEntry*>* pvec, std::set<std::string>& set_pos) {
    if (!pvec)
        return;
    for (const BaseLexicalEntry* entry : *pvec)
        if (entry)
            set_pos.insert(entry->get_pos());
}

void add_pos_wf_to_hash(std::map<std::string, std::set<std::string>*>& map_pos, const std::string& pos,
                        const std::string& word_form) {
    if (std::set<std::string>* const word_forms = find_or_create(map_pos, pos))
        word_forms->insert(word_form);
}

void free_pos_wf_to_hash(std::map<std::string, std::set<std::string>*>& map_pos) { free_inner(map_pos); }

void add_pos_wf_to_wfc(std::map<std::string, WordFormContainers*>& map_wfc, const std::string& pos,
                       const std::string& word_form, WordFormContainer* pword_form_container) {
    std::cout << (map_wfc.contains(pos) ? "1\n2\n3\n4\n8" : "1\n2\n3\n5\n6\n7\n8") << std::endl;
    if (WordFormContainers* const containers = find_or_create(map_wfc, pos))
        containers->emplace(word_form, pword_form_container);
}

void free_wfc_hash(std::map<std::string, WordFormContainers*>& map_wfc) { free_inner(map_wfc); }

} // namespace zelvor
