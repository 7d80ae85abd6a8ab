// The lines of a Latin lexicon, read by all their readers.
#include "fuzz/fuzz.h"
#include "training/TagLexicon.h"
#include "training/tags.h"
#include "utils/LexicalEntry.h"

namespace zelvor::fuzz {

void check_line(const std::string& line) {
    LexicalEntry full, tagger, reduced, again;
    const bool is_full = succeeds([&] { full.parse_latin(line); });
    require(succeeds([&] { tagger.parse_latin_tagger(line); }) == is_full, "both readers need as many fields", line);
    require(succeeds([&] { reduced.parse_latin_tagger_reduced(line); }) || !is_full, "this one needs fewer", line);
    // White space may come to the edge of a field, where reading cuts it: of a list, whose values are written in order,
    // and of a word form, which is written as spelled out; a "-" that begins that would be read as an abbreviation.
    constexpr std::string_view white = " \t\v\f\r";
    const auto is_cut = [&](char a, char b) {
        return (a == ',' && white.find(b) < white.size()) || (b == ',' && white.find(a) < white.size());
    };
    if (!is_full || full.get_word_form().find_first_of("- \t\v\f\r") == 0 ||
        std::ranges::adjacent_find(line, is_cut) != line.end())
        return;
    std::ostringstream written, read_again;
    full.export_latin(written);
    again.parse_latin(written.str());
    again.export_latin(read_again);
    require_equal(read_again.str(), written.str(), "what is written reads back");
}

/// The tags by id are those of the entries.
void check_tags(const std::string& text) {
    std::map<int, std::string> expected;
    for_each_line(text, [&](const std::string& line) {
        LexicalEntry entry;
        if (line.starts_with("//"))
            return;
        succeeds([&] { entry.parse_latin(line); });
        expected.emplace(std::atoi(entry.get_word_form_id().c_str()), word_tag(entry.get_pos(), entry.get_lemma_pos()));
    });
    TagLexicon lexicon;
    if (!succeeds<std::invalid_argument>([&] { lexicon.load(MemoryFile(text).path(), false, [](auto, auto) {}); }) ||
        text.starts_with("\xEF\xBB\xBF"))
        return; // of another kind, or without an entry
    for (const auto& [id, tag] : expected)
        require_equal(lexicon.find(id) ? *lexicon.find(id)->pos : "none", tag, "an id has the tag of its first line");
    for (int id = -100; id < 100; ++id)
        require((lexicon.find(id) != nullptr) == expected.contains(id), "no other id is found", std::to_string(id));
}

} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    zelvor::fuzz::for_each_line(text, zelvor::fuzz::check_line);
    zelvor::fuzz::check_tags(text);
    return 0;
}
