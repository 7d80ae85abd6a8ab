#include "utils/lexicon_utils/lemmatizer_calls.h"

#include "utils/WordFormContainer.h"
#include "utils/common_utils/case.h"
#include "utils/common_utils/numbers.h"
#include "utils/common_utils/process.h"
#include "utils/common_utils/text.h"
#include "utils/lexicon_utils/heap_maps.h"
#include "utils/logging_utils.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <string_view>
#include <tuple>
#include <unordered_set>
#include <vector>

namespace zelvor {

namespace {

// Calls use_line for every cached line, and returns the word forms that have none.
template<typename Use>
std::set<std::string> split_by_cache(const std::set<std::string>& word_forms, const LineCache* cache, Use use_line) {
    if (!cache)
        return word_forms;
    std::set<std::string> misses;
    for (const std::string& word_form : word_forms) {
        std::string lower = convert_lowercase(word_form);
        if (const auto hit = cache->find(lower); hit != cache->end())
            use_line(hit->second);
        else
            misses.insert(std::move(lower));
    }
    return misses;
}

// Gathers the cached lines, each with line_end behind it.
auto append_to(std::string& lines, std::string_view line_end) {
    return [&lines, line_end](const std::string& line) { lines.append(line).append(line_end); };
}

void write_word_forms(const std::string& filename, const std::set<std::string>& word_forms) {
    std::ofstream file(filename);
    for (const std::string& word_form : word_forms)
        file << convert_lowercase(word_form) << '\n';
}

// models/lat.model is models/n.lat.model for the tag n.
std::string model_of_tag(const std::string& model, const std::string& tag) {
    const std::size_t slash = model.rfind('/');
    const std::size_t name = slash == std::string::npos ? 0 : slash + 1;
    return model.substr(0, name) + tag + "." + model.substr(name);
}

struct Models {
    std::string model;
    std::string seg_model;
};

Models models_of_tag(const std::string& model, const std::string& seg_model, const std::string& tag) {
    return {model_of_tag(model, tag), model_of_tag(seg_model, tag)};
}

void print_models(const std::string& program, const Models& models) {
    std::cout << program << " model: " << models.model << std::endl;
    std::cout << program << " seg model: " << models.seg_model << std::endl;
}

std::string run(const std::string& program, const std::string& input, const Models& models, const std::string& output,
                const std::string& log_heading, log4cpp::Category* category) {
    const std::string command = program + " " + input + " " + models.model + " " + models.seg_model + " 2 5 " + output;
    log_message(category, {log_heading, command});
    return exec(command);
}

std::string run_lemmatizer(const std::string& temp_directory, const std::set<std::string>& word_forms,
                           const std::string& program, const Models& models, const std::string& log_heading,
                           log4cpp::Category* category) {
    const std::string input = temp_directory + "/lemmas.txt";
    write_word_forms(input, word_forms);
    return run(program, input, models, temp_directory + "/Lemmatizer", log_heading, category);
}

template<typename Use>
void for_each_line_of(const std::string& text, Use use) {
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        use(text.substr(begin, end - begin));
        begin = end + 1;
    }
}

std::vector<WordFormContainer*> find_containers(const WordFormContainers& containers, const std::string& word_form) {
    auto [begin, end] = containers.equal_range(word_form);
    if (begin == end)
        std::tie(begin, end) = containers.equal_range(capitalize_first_unicode(word_form));
    std::vector<WordFormContainer*> targets;
    for (; begin != end; ++begin)
        if (begin->second)
            targets.push_back(begin->second);
    return targets;
}

// Calls use(container, candidate, score); with `unique` only for the first of equal candidates.
template<typename Use>
void parse_output_line(const std::string& line, const WordFormContainers& containers, LineCache* cache, bool& modified,
                       bool unique, Use use) {
    const std::vector<std::string_view> fields = split_tokens(line, " ");
    if (fields.size() < 2)
        return;
    const std::string word_form(fields[0]);
    if (cache) {
        cache->emplace(word_form, line);
        modified = true;
    }
    const std::vector<WordFormContainer*> targets = find_containers(containers, word_form);
    std::unordered_set<std::string_view> seen;
    for (std::size_t i = 1; i < fields.size() && !targets.empty(); ++i) {
        const std::size_t bars = fields[i].find("||");
        if (bars == std::string_view::npos || (unique && !seen.insert(fields[i].substr(0, bars)).second))
            continue;
        const std::string candidate(fields[i].substr(0, bars));
        const double score = convert_string_to_double(std::string(fields[i].substr(bars + 2)));
        for (WordFormContainer* container : targets)
            use(*container, candidate, score);
    }
}

} // namespace

bool is_shell_safe(std::string_view tag) {
    return !tag.starts_with('-') && std::ranges::all_of(tag, [](unsigned char c) {
        return is_number_or_letter(c) ||
               std::string_view("_.,:+@%=-").find(static_cast<char>(c)) != std::string_view::npos;
    });
}

void call_lemmatizer(std::string temp_directory, log4cpp::Category* pcat, const std::set<std::string>& word_forms,
                     const std::string& lemmatizer_path, const std::string& lemma_model,
                     const std::string& lemma_seg_model, std::multimap<std::string, WordFormContainer*>& map_wfc,
                     std::map<std::string, std::string>* pmap_cache) {
    std::string cached_lines;
    // kept: without a line end, so that cached lines run together
    const std::set<std::string> misses = split_by_cache(word_forms, pmap_cache, append_to(cached_lines, ""));
    const std::string result = run_lemmatizer(temp_directory, misses, lemmatizer_path, {lemma_model, lemma_seg_model},
                                              "lemmaizer_command: ", pcat) +
                               cached_lines;
    log_message(pcat, {"lemmatizer result: ", result});
    bool ignored = false;
    for_each_line_of(result, [&](const std::string& line) { parse_line(line, map_wfc, nullptr, ignored, true); });
}

void call_lemmatizer_all_pos(std::string temp_directory, log4cpp::Category* pcat,
                             const std::set<std::string>& word_forms, const std::string& lemmatizer_path,
                             const std::string& lemma_model, const std::string& lemma_seg_model,
                             std::multimap<std::string, WordFormContainer*>& map_wfc,
                             std::map<std::string, std::map<std::string, std::string>*>* pmap_cache,
                             const std::set<std::string>& all_pos, bool& modified) {
    for (const std::string& tag : all_pos) {
        const Models models = models_of_tag(lemma_model, lemma_seg_model, tag);
        LineCache* cache = pmap_cache ? find_or_create(*pmap_cache, tag) : nullptr;
        std::string cached_lines;
        const std::set<std::string> misses = split_by_cache(word_forms, cache, append_to(cached_lines, "\n"));
        print_models("lemmatizer", models);
        const std::string result =
            run_lemmatizer(temp_directory, misses, lemmatizer_path, models, "lemmaizer_command: ", pcat) + cached_lines;
        log_message(pcat, {"lemmatizer result: ", result});
        for_each_line_of(result, [&](const std::string& line) { parse_line(line, map_wfc, cache, modified, false); });
    }
}

void call_lemmatizer_pos(std::string temp_directory, log4cpp::Category* pcat,
                         const std::map<std::string, std::set<std::string>*>& map_pos_wfs,
                         const std::string& lemmatizer_path, const std::string& lemma_model,
                         const std::string& lemma_seg_model,
                         std::map<std::string, std::multimap<std::string, WordFormContainer*>*>& map_wfc,
                         std::map<std::string, std::map<std::string, std::string>*>* pmap_cache, bool& modified) {
    for (const auto& [tag, word_forms] : map_pos_wfs) {
        if (!word_forms)
            continue;
        const auto known = map_wfc.find(tag);
        WordFormContainers none;
        WordFormContainers& containers = known != map_wfc.end() && known->second ? *known->second : none;
        LineCache* cache = pmap_cache ? find_or_create(*pmap_cache, tag) : nullptr;
        const std::set<std::string> misses = split_by_cache(*word_forms, cache, [&](const std::string& line) {
            parse_line(line, containers, nullptr, modified, true);
        });
        const std::string result =
            run_lemmatizer(temp_directory, misses, lemmatizer_path, models_of_tag(lemma_model, lemma_seg_model, tag),
                           "lemmatizer_command: ", pcat);
        log_message(pcat, {"lemmatizer result: ", result});
        for_each_line_of(result, [&](const std::string& line) { parse_line(line, containers, cache, modified, true); });
    }
}

void call_ocr(std::string temp_directory, log4cpp::Category* pcat, const std::set<std::string>& word_forms,
              const std::string& ocr_directory, const std::string& ocr_model, const std::string& ocr_seg_model,
              std::multimap<std::string, WordFormContainer*>& map_wfc, std::map<std::string, std::string>* pmap_cache,
              bool& modified) {
    std::string cached_lines;
    const std::set<std::string> misses = split_by_cache(word_forms, pmap_cache, append_to(cached_lines, "\n"));
    std::string result;
    if (!ocr_model.empty()) {
        const std::string input = temp_directory + "/ocr.txt";
        write_word_forms(input, misses);
        const Models models{ocr_model, ocr_seg_model};
        print_models("ocr", models);
        result = run(ocr_directory + "/decode.sh", input, models, temp_directory + "/ocr", "ocr_command: ", pcat);
    }
    result += cached_lines;
    log_message(pcat, {"ocr result: ", result});
    for_each_line_of(result,
                     [&](const std::string& line) { parse_line_ocr(line, map_wfc, pmap_cache, modified, false); });
}

void parse_line(const std::string& line, std::multimap<std::string, WordFormContainer*>& map_wfc,
                std::map<std::string, std::string>* pmap_pos_cache, bool& modified, bool add_tail) {
    parse_output_line(line, map_wfc, pmap_pos_cache, modified, false,
                      [add_tail](WordFormContainer& container, const std::string& lemma, double score) {
                          if (add_tail)
                              container.add_predicted_lemmas(lemma, score);
                          else
                              container.merge_max_predicted_lemmas(lemma, score);
                      });
}

void parse_line_ocr(const std::string& line, std::multimap<std::string, WordFormContainer*>& map_wfc,
                    std::map<std::string, std::string>* pmap_pos_cache, bool& modified, bool /*add_tail*/) {
    parse_output_line(line, map_wfc, pmap_pos_cache, modified, true,
                      [](WordFormContainer& container, const std::string& word_form, double score) {
                          container.add_predicted_ocr_wf(word_form, score);
                      });
}

} // namespace zelvor
