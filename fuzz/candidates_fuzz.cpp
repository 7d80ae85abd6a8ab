// Output lines of a lemmatiser or an OCR decoder, read as lines and as the files that keep them.
#include "fuzz/fuzz.h"
#include "utils/WordFormContainer.h"
#include "utils/common_utils/numbers.h"
#include "utils/lexicon_utils/candidates.h"
#include "utils/lexicon_utils/lemmatizer_calls.h"
#include "utils/lexicon_utils/lemmatizer_maps.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

namespace zelvor::fuzz {
namespace {

std::vector<std::string> split_at_blanks(const std::string& line) {
    std::vector<std::string> fields(1);
    for (const char c : line)
        if (c != ' ')
            fields.back() += c;
        else if (!fields.back().empty())
            fields.emplace_back();
    if (fields.back().empty())
        fields.pop_back();
    return fields;
}

/// The texts before the bars of a line.
std::vector<std::string> candidates_of(const std::vector<std::string>& fields) {
    std::vector<std::string> candidates;
    for (std::size_t i = 1; i < fields.size(); ++i)
        if (const std::size_t bars = fields[i].find("||"); bars != std::string::npos)
            candidates.push_back(fields[i].substr(0, bars));
    return candidates;
}

std::vector<std::string> texts(WordFormContainer::Candidates::iterator begin,
                               WordFormContainer::Candidates::iterator end) {
    std::vector<std::string> result;
    for (; begin != end; ++begin) {
        require(std::isfinite(begin->second), "a score is a number", begin->first);
        result.push_back(begin->first);
    }
    return result;
}

void check_choice(WordFormContainer& container, const std::string& language) {
    std::set<std::string> no_lexicon;
    const auto begin = container.begin_predicted_lemmas(), end = container.end_predicted_lemmas();
    const std::string lemma = select_lemma({"a"}, no_lexicon, begin, end, nullptr, nullptr, language, nullptr);
    const std::string form = select_ocr_wf({}, {}, container.begin_predicted_ocr_wf(), container.end_predicted_ocr_wf(),
                                           nullptr, nullptr, language, true, nullptr);
    const std::vector<std::string> lemmas = texts(begin, end);
    require(lemmas.empty() ? lemma.empty() : std::ranges::count(lemmas, lemma) > 0, "the choice is a candidate", lemma);
    require(lemmas.empty() || std::ranges::count(lemmas, form) > 0, "and so is the form", form);
}

void check_line(const std::string& line, WordFormContainer& best, const std::string& best_form) {
    std::vector<std::string> fields = split_at_blanks(line);
    const bool is_kept = fields.size() > 1;
    fields.resize(std::max<std::size_t>(fields.size(), 1));
    const std::vector<std::string> expected = candidates_of(fields);
    WordFormContainer container(fields[0]);
    WordFormContainers containers{{fields[0], &container}, {fields[0], nullptr}};
    LineCache cache;
    bool is_modified = false;
    parse_line(line, containers, &cache, is_modified, true);
    require(is_modified == is_kept && cache == (is_kept ? LineCache{{fields[0], line}} : LineCache()),
            "a line of candidates is kept under its form", line);
    require(texts(container.begin_predicted_lemmas(), container.end_predicted_lemmas()) == expected,
            "all candidates are added", line);
    parse_line_ocr(line, containers, nullptr, is_modified, false);
    const std::vector<std::string> forms = texts(container.begin_predicted_ocr_wf(), container.end_predicted_ocr_wf());
    require(std::set(forms.begin(), forms.end()).size() == forms.size(), "a spelling is added once", line);
    require(std::ranges::all_of(expected, [&](const auto& text) { return std::ranges::count(forms, text) == 1; }),
            "every spelling is", line);
    check_choice(container, fields[0]);
    WordFormContainers all{{fields[0] == best_form ? best_form : "", &best}};
    parse_line(line, all, nullptr, is_modified, false);
}

/// Lines merged one after the other leave one candidate a lemma, the best first.
void check_merged(WordFormContainer& container) {
    const auto begin = container.begin_predicted_lemmas(), end = container.end_predicted_lemmas();
    const std::vector<std::string> lemmas = texts(begin, end);
    require(std::set(lemmas.begin(), lemmas.end()).size() == lemmas.size(), "a lemma is there once");
    require(std::ranges::is_sorted(begin, end, std::ranges::greater(), [](const auto& pair) { return pair.second; }),
            "the best lemma comes first");
}

using Scores = std::map<std::pair<std::string, std::string>, double>;

/// Lines "word1,word2:count,_,_,_,score" of frequent pairs; the first of a pair counts.
Scores literal_scores(const std::string& text) {
    Scores scores;
    for_each_line(text, [&](const std::string& line) {
        const std::size_t colon = line.find(':');
        const std::size_t comma = line.substr(0, colon).find(',');
        std::string numbers = colon == std::string::npos ? "" : line.substr(colon + 1);
        std::ranges::replace(numbers, ' ', '\v'); // no separator here
        std::ranges::replace(numbers, ',', ' ');
        std::vector<std::string> fields = split_at_blanks(numbers);
        if (comma == std::string::npos || fields.size() < 5)
            return;
        const std::string& score = fields[4];
        if (convert_string_to_double(fields[0]) > 20 && score != "nan" && score != "-nan" && score != "inf")
            scores.emplace(std::pair(line.substr(0, comma), line.substr(comma + 1, colon - comma - 1)),
                           convert_string_to_double(score));
    });
    return scores;
}

void check_files(const std::string& text) {
    const MemoryFile file(text);
    LineCache lemmas, forms;
    Scores scores;
    fill_lemmatizer_hashmap(file.path(), lemmas);
    fill_ocr_hashmap(file.path(), forms);
    parse_attachment_map(file.path(), scores);
    for (const auto& [key, line] : lemmas)
        require(line.starts_with(key + "\t"), "a line begins with its key", line);
    for (const auto& [key, line] : forms)
        require(line.starts_with(key + " "), "a line begins with its form", line);
    for_each_line(text, [&](const std::string& line) {
        const std::size_t blank = line.find(' ');
        require(blank == std::string::npos || forms.contains(line.substr(0, blank)), "no line is lost", line);
    });
    require(scores == literal_scores(text), "every frequent pair has its score", text);
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    const std::string text(reinterpret_cast<const char*>(data), size);
    zelvor::WordFormContainer best;
    const std::string best_form = text.substr(0, text.find(' '));
    for_each_line(text, [&](const std::string& line) { check_line(line, best, best_form); });
    check_merged(best);
    check_files(text);
    return 0;
}
