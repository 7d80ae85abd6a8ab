// The lines of base and English entries.
#include "fuzz/fuzz.h"
#include "utils/EnglishLexicalEntry.h"

namespace zelvor::fuzz {
namespace {

void check_base_line(const std::string& line) {
    OriginatingLexicalEntryRepresentation entry("old", "older", "OLD"), base;
    entry.set_lemma_pos("OLD");
    entry.parse(line);
    base.BaseLexicalEntry::parse(line);
    require_equal(entry.get_abbreviated_word_form() + "\t" + entry.get_lemma() + "\t" + entry.get_lemma_pos() + "\t" +
                      entry.get_pos(),
                  base.get_abbreviated_word_form() + "\t" + base.get_lemma() + "\t" + base.get_lemma_pos() + "\t" +
                      base.get_pos(),
                  "nothing is left of the entry before, and sources change nothing");
    const BaseLexicalEntry again(base.get_lemma(), base.get_word_form(), "");
    if (!base.get_word_form().starts_with('-'))
        require_equal(again.get_word_form(), base.get_word_form(), "a stored form is spelled out again");
    require(!(again < BaseLexicalEntry(again)), "no entry is before its equal", line);
}

void check_english_line(const std::string& line) {
    EnglishLexicalEntry entry;
    entry.parse_tokens(split_at(line, '\t'));
    for_each_line(entry.to_string(), [&](const std::string& written) {
        EnglishLexicalEntry again;
        again.parse_tokens(split_at(written, '\t'));
        require(again.get_num_tokens() == 15, "15 columns are written", written);
        if (!entry.get_word_form().starts_with('-'))
            require_equal(again.to_string(), written + "\n", "what is written reads back");
    });
    std::vector<BaseLexicalEntry*> kept;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
    EnglishLexicalEntry copy = entry;
    require(entry.merge(kept, by_lemma, true) && !copy.merge(kept, by_lemma, true), "an equal entry is folded", line);
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    for_each_line({reinterpret_cast<const char*>(data), size}, [](const std::string& line) {
        check_base_line(line);
        check_english_line(line);
        if (const auto fields = split_at(line, '\t'); fields.size() == 6) { // any other number ends the process
            zelvor::BaseLexicalEntry entry;
            entry.parse_susanne(line);
            require_equal(entry.get_abbreviated_word_form(), fields[3], "the fourth field is the form");
        }
    });
    return 0;
}
