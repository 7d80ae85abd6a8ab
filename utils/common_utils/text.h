#pragma once

#include <map>
#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace Glib {
class ustring; // who passes a literal for one includes <glibmm/ustring.h>
}

/// Prefixes, splitting, searching, shortening and replacing. std::string counts bytes, Glib::ustring code points;
/// invalid UTF-8 is handled as utf8.h says. Everything is stateless and nothing throws on bad input.
namespace zelvor {

using Replacements = std::vector<std::pair<Glib::ustring, Glib::ustring>>;

// --- tests ---

bool vends_with(const std::string& str, const std::string& suffix);
bool vstarts_with(const std::string& str, const std::string& prefix);
bool vstarts_with_ustring(const Glib::ustring& str, const Glib::ustring& prefix);

/// ASCII letters and digits only.
bool is_number_or_letter(unsigned int c);
bool all_alphanum(Glib::ustring s);

/// Whether some code point is a letter of any script.
bool contains_alpha(const Glib::ustring& s);

// --- searching (byte positions; -1: not found) ---

/// First position >= start at which search_str occurs and which lies strictly before end - length(search_str): the
/// last place where it would still fit is not tried. end = -1 stands for the length of str.
int search_string(const std::string& str, const std::string& search_str, int start, int end);
int search_string_last(const std::string& str, const std::string& search_str);

/// The first index k, in code points, with from <= k < to at which c stands.
int find(Glib::ustring s, unsigned int c, unsigned long from, unsigned long to);

// --- splitting: empty tokens are dropped, every character of sep separates ---

std::shared_ptr<std::vector<std::string>> tokenize(const std::string& s, const std::string& sep);
void tokenize_arg(const std::string& s, const std::string& sep, std::vector<std::string>& tokens);  ///< appends
void tokenize_arg_set(const std::string& s, const std::string& sep, std::set<std::string>& tokens); ///< inserts

/// Appends the segments of word between separators. Meant for a separator of one character: only the first code point
/// of a longer one is skipped, and the rest opens the next segment. An empty separator does not split.
void tokenize_ustring(const Glib::ustring& word, const Glib::ustring& separator,
                      std::vector<Glib::ustring>& target_segments, bool allow_empty_segments);

/// The tokens of tokenize() without copies; the views live as long as the text behind s.
std::vector<std::string_view> split_tokens(std::string_view s, std::string_view sep);

/// The fields of a record line: adjacent separators count as one, but an empty field is kept at either end ("#a" is "",
/// "a"; the empty line is one empty field). The views live as long as the text behind line.
std::vector<std::string_view> split_fields(std::string_view line, std::string_view sep);

/// Without white space (the classic locale's six characters) at both ends.
std::string_view trimmed(std::string_view s);

// --- building, shortening, replacing ---

std::string concatenate_duplicate(std::string str, int len); ///< str, len times; empty for len <= 0

/// s when it is shorter than max_length bytes, otherwise its first max_length bytes and "...".
std::string get_substr(const std::string& s, unsigned int max_length);
std::string head(const std::string& s, unsigned int len);

Glib::ustring revert(Glib::ustring str);
Glib::ustring utrim(Glib::ustring s);
void replace(Glib::ustring& s, unsigned int c1, unsigned int c2);

/// Replaces s1 by s2; a beginning of s1 at the very end of s counts as an occurrence. An empty s1 replaces nothing.
Glib::ustring string_replace(const Glib::ustring& s, const Glib::ustring& s1, const Glib::ustring& s2);

/// Only the first pair is ever applied, and an empty list gives an empty result.
Glib::ustring string_replace_vec(const Glib::ustring& s, const Replacements& vec_replacements);

/// Splits "a=1&b=2"; a key that is there already keeps its value, a part without a value gets the empty one.
void parse_arguments(const std::string& str, std::map<std::string, std::string>& map_parameters);

void print_set(const std::set<std::string>& values); ///< each element and a blank, then a line end, on standard output

// --- to text ---

/// What print(os, pvalue) writes to a stream of the classic locale.
std::string print_classic(void (*print)(std::ostream& os, const void* pvalue), const void* pvalue);

/// Strings as they are, bool as "true" or "false", a pair as "(first,second)", all else as a classic stream prints it.
template<typename T>
std::string convert_to_string(const T& value) {
    if constexpr (std::is_convertible_v<const T&, std::string_view>) {
        return std::string(std::string_view(value));
    } else if constexpr (std::is_same_v<T, Glib::ustring>) {
        return value.raw();
    } else if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, std::vector<bool>::reference>) {
        return value ? "true" : "false";
    } else if constexpr (requires {
                             value.first;
                             value.second;
                         }) {
        return "(" + convert_to_string(value.first) + "," + convert_to_string(value.second) + ")";
    } else {
        return print_classic([](std::ostream& os, const void* pvalue) { os << *static_cast<const T*>(pvalue); },
                             &value);
    }
}

/// The elements in iteration order, joined with separator.
template<typename Iterator>
std::string convert_list_to_string(Iterator begin, Iterator end, const std::string& separator) {
    std::string list;
    bool is_first = true;
    for (Iterator it = begin; it != end; ++it) {
        if (!is_first)
            list += separator;
        list += convert_to_string(*it);
        is_first = false;
    }
    return list;
}

} // namespace zelvor
