// The lines of base and English entries.
#include "fuzz/fuzz.h"
#include "utils/EnglishLexicalEntry.h"

namespace zelvor::fuzz {

void check_line(const std::string& line) {
    const std::vector<std::string> columns = split_at(line, '\t');
    EnglishLexicalEntry entry;
    entry.parse(line);
    const BaseLexicalEntry again(entry.get_lemma(), entry.get_word_form(), "");
    if (!entry.get_word_form().starts_with('-'))
        require_equal(again.get_word_form(), entry.get_word_form(), "a stored form is spelled out again");
    require(!(again < BaseLexicalEntry(again)), "no entry is before its equal", line);
    entry.parse_tokens(columns);
    for_each_line(entry.to_string(), [&](const std::string& written) {
        EnglishLexicalEntry copy;
        copy.parse_tokens(split_at(written, '\t'));
        if (!entry.get_word_form().starts_with('-'))
            require_equal(copy.to_string(), written + "\n", "what is written reads back");
    });
    std::vector<BaseLexicalEntry*> kept;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
    EnglishLexicalEntry copy = entry;
    require(entry.merge(kept, by_lemma, true) && !copy.merge(kept, by_lemma, true), "an equal entry is folded", line);
    if (columns.size() == 6) // any other number ends the process
        copy.parse_susanne(line);
}

} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zelvor::fuzz::for_each_line({reinterpret_cast<const char*>(data), size}, zelvor::fuzz::check_line);
    return 0;
}
