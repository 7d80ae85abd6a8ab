// Output lines of a lemmatiser or an OCR decoder, read as lines and as the files that keep them.
#include "fuzz/fuzz.h"
#include "utils/WordFormContainer.h"
#include "utils/lexicon_utils/candidates.h"
#include "utils/lexicon_utils/lemmatizer_calls.h"
#include "utils/lexicon_utils/lemmatizer_maps.h"

namespace zelvor::fuzz {

using Candidates = WordFormContainer::Candidates;

void check_line(const std::string& line) {
    const std::string form = line.substr(std::min(line.find_first_not_of(' '), line.size()));
    WordFormContainer all, best;
    WordFormContainers containers{{form.substr(0, form.find(' ')), &all}}, merging{{containers.begin()->first, &best}};
    bool is_modified = false;
    parse_line(line, containers, nullptr, is_modified, true);
    parse_line(line, merging, nullptr, is_modified, false);
    parse_line_ocr(line, containers, nullptr, is_modified, false);
    std::set<std::string> lemmas, no_lexicon;
    for (const auto& [lemma, score] : Candidates(all.begin_predicted_lemmas(), all.end_predicted_lemmas())) {
        require(std::isfinite(score), "a score is a number", line);
        lemmas.insert(lemma);
    }
    const auto begin = best.begin_predicted_lemmas(), end = best.end_predicted_lemmas();
    require(std::ranges::is_sorted(begin, end, std::ranges::greater(), &Candidates::value_type::second),
            "the best lemma comes first", line);
    const auto as_many = static_cast<std::ptrdiff_t>(lemmas.size());
    require(end - begin == as_many, "lemmas are merged into one each", line);
    require(all.end_predicted_ocr_wf() - all.begin_predicted_ocr_wf() == as_many, "a spelling is added once", line);
    const std::string lemma = select_lemma({"a"}, no_lexicon, begin, end, nullptr, nullptr, "la", nullptr);
    require(lemmas.empty() ? lemma.empty() : lemmas.contains(lemma), "the choice is a candidate", lemma);
}

} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    const std::string text(reinterpret_cast<const char*>(data), size);
    for_each_line(text, check_line);
    const MemoryFile file(text);
    zelvor::LineCache lemmas, forms;
    std::map<std::pair<std::string, std::string>, double> scores;
    zelvor::fill_lemmatizer_hashmap(file.path(), lemmas);
    zelvor::fill_ocr_hashmap(file.path(), forms);
    zelvor::parse_attachment_map(file.path(), scores);
    for (const auto& [key, line] : lemmas)
        require(line.starts_with(key + "\t"), "a line begins with its key", line);
    return 0;
}
