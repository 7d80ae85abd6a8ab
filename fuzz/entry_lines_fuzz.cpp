// The lines of base and English entries.
#include "fuzz/fuzz.h"
#include "utils/EnglishLexicalEntry.h"
#include "utils/common_utils/text.h"

#include <algorithm>
#include <set>
#include <vector>

namespace zelvor::fuzz {
namespace {

std::vector<std::string> split_at(const std::string& line, char separator) {
    std::vector<std::string> columns(1);
    for (const char c : line) {
        if (c == separator)
            columns.emplace_back();
        else
            columns.back() += c;
    }
    return columns;
}

void check_stored_form(const std::string& lemma, const std::string& word_form) {
    const BaseLexicalEntry entry(lemma, word_form, "");
    if (!word_form.starts_with('-') || word_form.starts_with(lemma))
        require_equal(entry.get_word_form(), word_form, "a stored form is spelled out again");
    BaseLexicalEntry copy(lemma, "", "");
    copy.set_word_form(word_form);
    require(!(entry < BaseLexicalEntry(entry)), "no entry is before its equal", word_form);
    if (!lemma.empty())
        require_equal(copy.get_abbreviated_word_form(), entry.get_abbreviated_word_form(), "both ways store the same");
}

/// The values of a comma list as a sorted one.
std::string sources_in(const std::string& list) {
    std::set<std::string> values;
    for (const std::string& value : split_at(list, ','))
        if (!value.empty())
            values.insert(value);
    return convert_list_to_string(values.begin(), values.end(), ",");
}

void check_sources(const std::string& line, const std::vector<std::string>& fields, const std::string& stored_form) {
    OriginatingLexicalEntryRepresentation entry;
    entry.insert_originating_source_pos("kept");
    entry.parse(line);
    require_equal(entry.get_abbreviated_word_form(), stored_form, "sources change nothing");
    const auto field = [&](std::size_t i, const char* otherwise) { return i < fields.size() ? fields[i] : otherwise; };
    require_equal(convert_list_to_string(entry.originating_word_forms_source_begin(),
                                         entry.originating_word_forms_source_end(), ","),
                  sources_in(field(4, "")), "the fifth field has the sources of the form");
    require_equal(
        convert_list_to_string(entry.originating_lemmas_source_begin(), entry.originating_lemmas_source_end(), ","),
        sources_in(field(5, "")), "the sixth those of the lemma");
    require_equal(convert_list_to_string(entry.originating_pos_source_begin(), entry.originating_pos_source_end(), ","),
                  sources_in(field(6, "kept")),
                  "the seventh those of the part of speech, and stays away without a change");
}

void check_base_line(const std::string& line) {
    BaseLexicalEntry entry("old", "older", "OLD");
    entry.set_lemma_pos("OLD");
    entry.parse(line);
    const std::vector<std::string> fields = literal_fields(line, "\t#");
    const bool is_read = fields.size() > 1;
    require_equal(entry.get_lemma(), is_read ? std::string(trimmed(fields[1])) : "", "the second field is the lemma");
    require_equal(entry.get_lemma_pos(), fields.size() > 2 ? fields[2] : "", "the third is the lemma's tag");
    require_equal(entry.get_pos(), fields.size() > 3 ? fields[3] : "", "the fourth is the form's tag");
    const std::string form(trimmed(fields[0]));
    check_stored_form(entry.get_lemma(), form);
    BaseLexicalEntry set_by_hand(entry.get_lemma(), "", "");
    set_by_hand.set_word_form(form);
    require_equal(entry.get_abbreviated_word_form(), is_read ? set_by_hand.get_abbreviated_word_form() : "",
                  "the first field is the form, which a line of one field lacks");
    check_sources(line, fields, entry.get_abbreviated_word_form());
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
    require(entry.combine(entry.get_mood(), "") == entry.get_mood(), "nothing is combined with nothing", line);
    std::vector<BaseLexicalEntry*> kept;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
    EnglishLexicalEntry copy = entry;
    require(entry.merge(kept, by_lemma, true) && !copy.merge(kept, by_lemma, true), "an equal entry is folded", line);
}

/// Any other number of fields ends the process, by design.
void check_susanne_line(const std::string& line) {
    const std::vector<std::string> fields = split_at(line, '\t');
    if (fields.size() != 6)
        return;
    BaseLexicalEntry entry;
    entry.parse_susanne(line);
    require_equal(entry.get_abbreviated_word_form(), fields[3], "the fourth field is the form");
    require_equal(entry.get_lemma(), fields[4], "the fifth is the lemma");
    require(fields[2].empty() == entry.get_pos().empty(), "the third is the tag", line);
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    for_each_line({reinterpret_cast<const char*>(data), size}, [](const std::string& line) {
        check_base_line(line);
        check_english_line(line);
        check_susanne_line(line);
    });
    return 0;
}
