// The lines of a Latin lexicon, read by all their readers.
#include "fuzz/fuzz.h"
#include "training/TagLexicon.h"
#include "training/tags.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/text.h"

#include <deque>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace zelvor::fuzz {
namespace {

constexpr std::size_t REQUIRED = 22, REQUIRED_REDUCED = 18, LEMMA = 4, WORD_FORM = 8, PERSON = 16, FIRST_SET = 22,
                      FIRST_BOOKKEEPING = 25, COLUMNS = 31;

std::vector<std::string> trimmed_fields(const std::string& line) {
    std::vector<std::string> fields = literal_fields(line, "#");
    for (std::string& field : fields) {
        field.erase(0, field.find_first_not_of(" \t\n\v\f\r"));
        field.erase(field.find_last_not_of(" \t\n\v\f\r") + 1);
    }
    return fields;
}

bool reads(LexicalEntry& entry, void (LexicalEntry::*reader)(const std::string&), const std::string& line) {
    try {
        (entry.*reader)(line);
        return true;
    } catch (const std::out_of_range&) {
        return false;
    }
}

std::string exported(LexicalEntry& entry) {
    std::ostringstream os;
    entry.export_latin(os);
    return os.str().substr(0, os.str().size() - 1);
}

/// What export must write in a column of text.
std::string expected_column(const std::vector<std::string>& fields, std::size_t column) {
    std::string field = column < fields.size() ? fields[column] : "";
    if (column == WORD_FORM && field.starts_with('-'))
        return std::string(trimmed(fields[LEMMA] + field.substr(1))); // white space behind the "-" comes to an end
    if (column == PERSON && (field == "FIRST_PERSON" || field == "SECOND_PERSON" || field == "THIRD_PERSON"))
        return field == "FIRST_PERSON" ? "PERSON_1" : field == "SECOND_PERSON" ? "PERSON_2" : "PERSON_3";
    return field;
}

void check_full_line(const std::string& line, const std::vector<std::string>& fields) {
    LexicalEntry entry, again;
    entry.parse_latin(line);
    const std::string text = exported(entry);
    const std::vector<std::string> written = trimmed_fields(text);
    require(written.size() == COLUMNS, "all columns are written", text);
    for (std::size_t i = 0; i < COLUMNS; ++i)
        if (i < FIRST_SET || i >= FIRST_BOOKKEEPING)
            require_equal(written[i], expected_column(fields, i), "a column is written as it was read");
    const bool is_unambiguous = !written[WORD_FORM].starts_with('-') && line.find_first_of(" \t\v\f\r") > line.size();
    again.parse_latin(text);
    if (is_unambiguous)
        require_equal(exported(again), text, "what is written reads back");
}

void check_line(const std::string& line) {
    const std::vector<std::string> fields = trimmed_fields(line);
    LexicalEntry full, tagger, reduced;
    const bool is_full = fields.size() >= REQUIRED;
    require(reads(full, &LexicalEntry::parse_latin, line) == is_full, "22 fields are needed", line);
    require(reads(tagger, &LexicalEntry::parse_latin_tagger, line) == is_full, "22 fields for the tagger", line);
    require(reads(reduced, &LexicalEntry::parse_latin_tagger_reduced, line) == (fields.size() >= REQUIRED_REDUCED),
            "18 fields are needed", line);
    if (!is_full)
        return;
    check_full_line(line, fields);
    const bool is_verbal = full.get_mood() == "GERUND" || full.get_mood() == "GERUNDIVE";
    require_equal(tagger.get_pos(), is_verbal ? "V" : full.get_pos(), "the tagger reads verbal nouns as verbs");
    require_equal(tagger.get_word_form(), full.get_word_form(), "the tagger reads the same form");
    require_equal(reduced.get_pos() + reduced.get_mood() + reduced.get_voice(), full.get_pos(), "the reduced line");
}

/// The tags by id are those of the entries.
void check_tags(const std::string& text) {
    std::map<int, std::string> expected;
    for_each_line(text, [&](const std::string& line) {
        LexicalEntry entry;
        if (line.starts_with("//"))
            return;
        reads(entry, &LexicalEntry::parse_latin, line);
        expected.emplace(std::atoi(entry.get_word_form_id().c_str()), word_tag(entry.get_pos(), entry.get_lemma_pos()));
    });
    TagLexicon lexicon;
    lexicon.load(MemoryFile(text).path(), false, [](std::size_t, std::size_t) {});
    for (const auto& [id, tag] : expected) {
        require(lexicon.find(id) != nullptr, "an id is found", std::to_string(id));
        require_equal(*lexicon.find(id)->pos, tag, "an id has the tag of its first line");
        if (id < INT_MAX)
            require((lexicon.find(id + 1) != nullptr) == expected.contains(id + 1), "no other id is found");
    }
}

/// Merged one after the other, every entry is kept or folded into one that is there; a second time all are folded.
void check_merge(const std::string& text, bool extended) {
    std::deque<LexicalEntry> entries;
    std::vector<BaseLexicalEntry*> kept;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
    for_each_line(text, [&](const std::string& line) {
        reads(entries.emplace_back(), &LexicalEntry::parse_latin, line);
        const std::size_t before = kept.size();
        LexicalEntry copy = entries.back();
        const bool is_kept = entries.back().merge(kept, by_lemma, extended);
        require(kept.size() == before + is_kept, "an entry is kept or folded", line);
        require(!copy.merge(kept, by_lemma, extended), "an equal entry is folded", line);
    });
    require(kept.size() == by_lemma.size() && kept.size() <= entries.size(), "both containers hold the same");
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    zelvor::fuzz::for_each_line(text, zelvor::fuzz::check_line);
    zelvor::fuzz::check_tags(text);
    zelvor::fuzz::check_merge(text, false);
    zelvor::fuzz::check_merge(text, true);
    return 0;
}
