// Output lines of a lemmatiser or an OCR decoder, read as lines and as the files that keep them.
#include "fuzz/fuzz.h"
#include "utils/WordFormContainer.h"
#include "utils/lexicon_utils/candidates.h"
#include "utils/lexicon_utils/lemmatizer_calls.h"
#include "utils/lexicon_utils/lemmatizer_maps.h"

#include <algorithm>
#include <cmath>

namespace zelvor::fuzz {
namespace {

/// The texts of scored candidates, each with a finite score.
std::vector<std::string> texts(WordFormContainer::Candidates::iterator begin,
                               WordFormContainer::Candidates::iterator end) {
    std::vector<std::string> result;
    for (; begin != end; ++begin) {
        require(std::isfinite(begin->second), "a score is a number", begin->first);
        result.push_back(begin->first);
    }
    return result;
}

void check_line(const std::string& line) {
    const auto first = std::ranges::find_if(line, [](char c) { return c != ' '; });
    const std::string form(first, std::find(first, line.end(), ' '));
    WordFormContainer all(form), best(form);
    WordFormContainers containers{{form, &all}}, merging{{form, &best}};
    bool is_modified = false;
    parse_line(line, containers, nullptr, is_modified, true);
    parse_line(line, merging, nullptr, is_modified, false);
    parse_line_ocr(line, containers, nullptr, is_modified, false);
    std::vector<std::string> lemmas = texts(all.begin_predicted_lemmas(), all.end_predicted_lemmas());
    std::vector<std::string> forms = texts(all.begin_predicted_ocr_wf(), all.end_predicted_ocr_wf());
    const auto begin = best.begin_predicted_lemmas(), end = best.end_predicted_lemmas();
    std::vector<std::string> merged = texts(begin, end);
    require(std::ranges::is_sorted(begin, end, std::ranges::greater(), [](const auto& pair) { return pair.second; }),
            "the best lemma comes first", line);
    std::set<std::string> distinct(lemmas.begin(), lemmas.end()), no_lexicon;
    const std::string lemma = select_lemma({"a"}, no_lexicon, begin, end, nullptr, nullptr, form, nullptr);
    require(distinct.empty() ? lemma.empty() : distinct.contains(lemma), "the choice is a candidate", lemma);
    std::ranges::sort(forms);
    std::ranges::sort(merged);
    require(std::ranges::equal(forms, distinct), "a spelling is added once", line);
    require(std::ranges::equal(merged, distinct), "a lemma is merged into one", line);
}

void check_files(const MemoryFile& file) {
    LineCache lemmas, forms;
    std::map<std::pair<std::string, std::string>, double> scores;
    fill_lemmatizer_hashmap(file.path(), lemmas);
    fill_ocr_hashmap(file.path(), forms);
    parse_attachment_map(file.path(), scores);
    for (const auto& [key, line] : lemmas)
        require(line.starts_with(key + "\t"), "a line begins with its key", line);
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    const std::string text(reinterpret_cast<const char*>(data), size);
    for_each_line(text, check_line);
    check_files(MemoryFile(text));
    return 0;
}
