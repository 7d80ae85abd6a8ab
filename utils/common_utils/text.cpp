#include "utils/common_utils/text.h"

#include "utils/common_utils/utf8.h"

#include <glib.h>
#include <glibmm/ustring.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <locale>
#include <sstream>

namespace zelvor {

namespace {

/// Text decoded once, with the place of each code point, so that what is copied keeps its bytes.
struct Characters {
    explicit Characters(std::string_view text) : bytes(text) {
        points.reserve(text.size());
        offsets.reserve(text.size() + 1);
        for (std::size_t position = 0; position < text.size();) {
            const DecodedCharacter character = decode_character(text, position);
            points.push_back(character.code_point);
            offsets.push_back(position);
            position += character.length;
        }
        offsets.push_back(text.size());
    }

    std::string_view slice(std::size_t i) const { return bytes.substr(offsets[i], offsets[i + 1] - offsets[i]); }

    /// How many code points of pattern stand at i, comparing while both last; 0 where one differs.
    std::size_t match(std::size_t i, std::u32string_view pattern) const {
        const std::u32string_view here = std::u32string_view(points).substr(i, pattern.size());
        return pattern.starts_with(here) ? here.size() : 0;
    }

    std::string_view bytes;
    std::u32string points;
    std::vector<std::size_t> offsets;
};

template<typename Sink>
void for_each_token(std::string_view s, std::string_view sep, Sink sink) {
    for (std::size_t begin = s.find_first_not_of(sep); begin < s.size();) {
        const std::size_t end = std::min(s.find_first_of(sep, begin), s.size());
        sink(s.substr(begin, end - begin));
        begin = s.find_first_not_of(sep, end);
    }
}

bool is_ascii_alphanumeric(char32_t c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

Glib::ustring replace_pattern(const Glib::ustring& s, const Glib::ustring& pattern, const std::string& replacement) {
    const Characters text(s.raw());
    const std::u32string searched = decode_utf8(pattern.raw());
    std::string result;
    for (std::size_t i = 0; i < text.points.size();) {
        const std::size_t matched = text.match(i, searched);
        result += matched ? std::string_view(replacement) : text.slice(i);
        i += std::max<std::size_t>(matched, 1);
    }
    return result;
}

} // namespace

bool vends_with(const std::string& str, const std::string& suffix) { return str.ends_with(suffix); }

bool vstarts_with(const std::string& str, const std::string& prefix) { return str.starts_with(prefix); }

bool vstarts_with_ustring(const Glib::ustring& str, const Glib::ustring& prefix) {
    return decode_utf8(str.raw()).starts_with(decode_utf8(prefix.raw()));
}

bool is_number_or_letter(unsigned int c) { return is_ascii_alphanumeric(c); }

bool all_alphanum(Glib::ustring s) {
    return std::ranges::all_of(s.raw(), [](unsigned char byte) { return is_ascii_alphanumeric(byte); });
}

bool contains_alpha(const Glib::ustring& s) {
    return std::ranges::any_of(decode_utf8(s.raw()), [](char32_t c) { return g_unichar_isalpha(c); });
}

int search_string(const std::string& str, const std::string& search_str, int start, int end) {
    const std::size_t length = str.size();
    if (start < 0 || search_str.size() > length)
        return -1;
    const std::size_t last = end < 0 ? length : std::min<std::size_t>(static_cast<std::size_t>(end), length);
    const std::size_t found = str.find(search_str, static_cast<std::size_t>(start));
    // Kept: the bound is strict and unsigned, so that the last fitting place is never tried.
    return found < last - search_str.size() && found != std::string::npos ? static_cast<int>(found) : -1;
}

int search_string_last(const std::string& str, const std::string& search_str) {
    const std::size_t found = str.rfind(search_str);
    return found == std::string::npos ? -1 : static_cast<int>(found);
}

int find(Glib::ustring s, unsigned int c, unsigned long from, unsigned long to) {
    const std::u32string text = decode_utf8(s.raw());
    const std::size_t found = text.find(c, from);
    return found < to && found != std::u32string::npos ? static_cast<int>(found) : -1;
}

std::shared_ptr<std::vector<std::string>> tokenize(const std::string& s, const std::string& sep) {
    auto tokens = std::make_shared<std::vector<std::string>>();
    tokenize_arg(s, sep, *tokens);
    return tokens;
}

void tokenize_arg(const std::string& s, const std::string& sep, std::vector<std::string>& tokens) {
    for_each_token(s, sep, [&](std::string_view token) { tokens.emplace_back(token); });
}

void tokenize_arg_set(const std::string& s, const std::string& sep, std::set<std::string>& tokens) {
    for_each_token(s, sep, [&](std::string_view token) { tokens.emplace(token); });
}

void tokenize_ustring(const Glib::ustring& word, const Glib::ustring& separator,
                      std::vector<Glib::ustring>& target_segments, bool allow_empty_segments) {
    const std::string_view text = word.raw();
    const std::string_view sep = separator.raw();
    // Kept: only the first code point of the separator is skipped.
    const std::size_t skipped = sep.empty() ? 0 : decode_character(sep, 0).length;
    const auto append = [&](std::string_view segment) {
        if (!segment.empty() || allow_empty_segments)
            target_segments.emplace_back(std::string(segment));
    };
    std::size_t begin = 0;
    if (!sep.empty())
        for (std::size_t at; (at = text.find(sep, begin)) != std::string_view::npos; begin = at + skipped)
            append(text.substr(begin, at - begin));
    append(text.substr(begin));
}

std::vector<std::string_view> split_tokens(std::string_view s, std::string_view sep) {
    std::vector<std::string_view> tokens;
    for_each_token(s, sep, [&](std::string_view token) { tokens.push_back(token); });
    return tokens;
}

std::vector<std::string_view> split_fields(std::string_view line, std::string_view sep) {
    std::array<bool, 256> separates{};
    for (const unsigned char c : sep)
        separates[c] = true;
    // Fields are a few bytes long: a plain loop is faster than a search for each of them.
    const auto is_separator = [&](const char* at) { return separates[static_cast<unsigned char>(*at)]; };
    std::vector<std::string_view> fields;
    fields.reserve(32);
    const char* const end = line.data() + line.size();
    for (const char* begin = line.data();;) {
        const char* at = begin;
        while (at != end && !is_separator(at))
            ++at;
        fields.emplace_back(begin, static_cast<std::size_t>(at - begin));
        if (at == end)
            return fields;
        while (at != end && is_separator(at))
            ++at;
        begin = at;
    }
}

std::string_view trimmed(std::string_view s) {
    const auto is_white = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
    while (!s.empty() && is_white(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && is_white(s.back()))
        s.remove_suffix(1);
    return s;
}

std::string concatenate_duplicate(std::string str, int len) {
    std::string result;
    for (int i = 0; i < len; ++i)
        result += str;
    return result;
}

std::string get_substr(const std::string& s, unsigned int max_length) {
    return max_length > s.size() ? s : s.substr(0, max_length) + "...";
}

std::string head(const std::string& s, unsigned int len) { return get_substr(s, len); }

Glib::ustring revert(Glib::ustring str) {
    const Characters text(str.raw());
    std::string result;
    result.reserve(text.bytes.size());
    for (std::size_t i = text.points.size(); i-- > 0;)
        result += text.slice(i);
    return result;
}

Glib::ustring utrim(Glib::ustring s) { return std::string(trimmed(s.raw())); }

void replace(Glib::ustring& s, unsigned int c1, unsigned int c2) {
    const Characters text(s.raw());
    std::string result;
    result.reserve(text.bytes.size());
    for (std::size_t i = 0; i < text.points.size(); ++i) {
        if (text.points[i] == c1)
            append_utf8(result, c2);
        else
            result += text.slice(i);
    }
    s = result;
}

Glib::ustring string_replace(const Glib::ustring& s, const Glib::ustring& s1, const Glib::ustring& s2) {
    return replace_pattern(s, s1, s2.raw());
}

Glib::ustring string_replace_vec(const Glib::ustring& s, const Replacements& vec_replacements) {
    // Kept: a mismatch of the first pair also rules out the later ones, and no pair at all consumes the text.
    if (vec_replacements.empty())
        return {};
    return replace_pattern(s, vec_replacements.front().first, vec_replacements.front().second.raw());
}

void parse_arguments(const std::string& str, std::map<std::string, std::string>& map_parameters) {
    for_each_token(str, "&", [&](std::string_view part) {
        const std::vector<std::string_view> sides = split_tokens(part, "=");
        if (!sides.empty())
            map_parameters.emplace(sides[0], sides.size() > 1 ? sides[1] : std::string_view());
    });
}

void print_set(const std::set<std::string>& values) {
    for (const std::string& value : values)
        std::cout << value << ' ';
    std::cout << std::endl;
}

std::string print_classic(void (*print)(std::ostream& os, const void* pvalue), const void* pvalue) {
    std::ostringstream os;
    os.imbue(std::locale::classic());
    print(os, pvalue);
    return os.str();
}

} // namespace zelvor
