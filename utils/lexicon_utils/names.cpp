#include "utils/lexicon_utils/names.h"

#include "utils/common_utils/case.h"
#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"

#include <glib.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <string_view>

#include <wn.h> // last: its macros have names such as NOUN and CLASS

namespace zelvor {

namespace {

constexpr int NO_POS = 0;
constexpr std::size_t MAX_WORD_BYTES = WORDBUF - 1; // the library's buffers hold no more

using IndexEntry = std::unique_ptr<Index, decltype(&free_index)>;
using SynsetRecord = std::unique_ptr<Synset, decltype(&free_synset)>;

bool is_possible_word(const std::string& word, int pos) {
    return pos >= NOUN && pos <= ADV && word.size() <= MAX_WORD_BYTES && word.find('\0') == std::string::npos;
}

IndexEntry look_up(std::string word, int pos) {
    return {is_possible_word(word, pos) ? index_lookup(word.data(), pos) : nullptr, &free_index};
}

bool has_instance_hypernym(int pos, unsigned long offset) {
    std::string no_word;
    const SynsetRecord synset(read_synset(pos, static_cast<long>(offset), no_word.data()), &free_synset);
    return synset &&
           std::find(synset->ptrtyp, synset->ptrtyp + synset->ptrcount, INSTANCE) != synset->ptrtyp + synset->ptrcount;
}

bool has_base_form(std::string word, int pos) {
    return is_possible_word(word, pos) && morphword(word.data(), pos) != nullptr;
}

int pos_number(std::string_view pos) {
    if (pos == "N" || pos == "NE")
        return NOUN;
    if (pos == "V" || pos == "VB")
        return VERB;
    if (pos == "ADJ")
        return ADJ;
    return pos == "ADV" ? ADV : NO_POS;
}

int count_of(const std::string& word, const std::map<std::string, int>& statistics) {
    const auto found = statistics.find(word);
    return found == statistics.end() ? 0 : found->second;
}

/// Code points outside Latin-1 have no lower case here: the C library's table ends there.
bool begins_in_lower_case(const std::string& text) {
    if (text.empty())
        return false;
    const char32_t first = decode_character(text, 0).code_point;
    return first < 256 && std::islower(static_cast<int>(first));
}

bool begins_with_small_ascii_letter(std::string_view word) {
    const auto first = static_cast<unsigned char>(word.front());
    return first < 128 && g_unichar_islower(first);
}

bool is_phrase_of_capitalized_words(const std::string& text) {
    const std::vector<std::string_view> words = split_tokens(text, " ");
    return words.size() != 1 && std::ranges::none_of(words, begins_with_small_ascii_letter);
}

} // namespace

instance_ret is_instance(const std::string& str, int pos) {
    const IndexEntry entry = look_up(str, pos);
    if (!entry)
        return NOT_FOUND;
    if (pos != NOUN)
        return TYPE;
    const bool is_individual = std::any_of(entry->offset, entry->offset + entry->off_cnt,
                                           [&](unsigned long offset) { return has_instance_hypernym(pos, offset); });
    return is_individual ? CINSTANCE : TYPE;
}

bool is_word_form(const Glib::ustring& word_form, const Glib::ustring& lemma, const std::string& spos) {
    const int pos = pos_number(spos);
    const std::string& form = word_form.raw();
    if (has_base_form(convert_lowercase(form), pos))
        return true;
    if (pos != NOUN && pos != VERB)
        return false;
    return (form.ends_with('s') && look_up(form.substr(0, form.size() - 1), pos)) || form == lemma.raw() + "s";
}

bool uby_ne_recognizer(const Glib::ustring& s, const std::map<std::string, int>& map_statistics) {
    const std::string& text = s.raw();
    if (begins_in_lower_case(text))
        return false;
    const std::string lowercase = convert_lowercase(text);
    if (const instance_ret instance = is_instance(lowercase, NOUN); instance != NOT_FOUND)
        return instance == CINSTANCE;
    const int as_written = count_of(text, map_statistics);
    const int in_lowercase = count_of(lowercase, map_statistics);
    return as_written == in_lowercase ? is_phrase_of_capitalized_words(text) : as_written > in_lowercase;
}

bool clearnlp_ne_recognizer(const Glib::ustring& s, const std::map<std::string, int>& map_statistics) {
    const instance_ret instance = is_instance(s.raw(), NOUN);
    return instance == NOT_FOUND ? clearnlp_capitalized_adj_recognizer(s, map_statistics) : instance == CINSTANCE;
}

bool clearnlp_capitalized_adj_recognizer(const Glib::ustring& s, const std::map<std::string, int>& map_statistics) {
    return count_of(capitalize_first_unicode(s.raw()), map_statistics) > count_of(s.raw(), map_statistics);
}

} // namespace zelvor
