#include "training/conllu_values.h"

#include "training/ColumnLines.h"
#include "training/Token.h"
#include "training/normal_form.h"
#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"

#include <algorithm>

namespace zelvor {

namespace {

bool is_ascii(char c) { return static_cast<unsigned char>(c) < 0x80; }
bool is_upper(char c) { return c >= 'A' && c <= 'Z'; }
bool is_lower(char c) { return c >= 'a' && c <= 'z'; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }
char to_lower(char c) { return is_upper(c) ? static_cast<char>(c - 'A' + 'a') : c; }

bool is_line_end(char32_t c) {
    return (c >= '\n' && c <= '\r') || (c >= 0x1C && c <= 0x1E) || c == 0x85 || c == 0x2028 || c == 0x2029;
}

bool is_white_space(char32_t c) {
    return is_line_end(c) || c == '\t' || c == 0x1F || c == ' ' || c == 0xA0 || c == 0x1680 ||
           (c >= 0x2000 && c <= 0x200A) || c == 0x202F || c == 0x205F || c == 0x3000;
}

bool is_wide_space(std::string_view text, std::size_t position) {
    return !is_ascii(text[position]) && breaking_character(text, position) == 0 &&
           is_white_space(decode_character(text, position).code_point);
}

bool is_utf8(char first, std::size_t length) { return is_ascii(first) || length > 1; }

/// In Unicode's normal form C, with "_" for each character that is_unfit(code point, is UTF-8).
template<typename IsUnfit>
std::string comment(std::string_view text, IsUnfit is_unfit) {
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        const auto [c, length] = decode_character(text, i);
        result += is_unfit(c, is_utf8(text[i], length)) ? "_" : text.substr(i, length);
        i += length;
    }
    to_normal_form(result);
    return result;
}

/// Takes the characters at the begin for which is_wanted holds, at most so many; how many these are.
template<typename IsWanted>
std::size_t take(std::string_view& text, IsWanted is_wanted, std::size_t at_most) {
    std::size_t count = 0;
    while (count < at_most && count < text.size() && is_wanted(text[count]))
        ++count;
    text.remove_prefix(count);
    return count;
}

bool take(std::string_view& text, char c) {
    return take(
               text, [c](char other) { return other == c; }, 1) == 1;
}

bool take_letters_and_digits(std::string_view& text, bool may_begin_with_digit) {
    const auto is_first = [&](char c) { return is_upper(c) || (may_begin_with_digit && is_digit(c)); };
    if (take(text, is_first, 1) == 0)
        return false;
    take(
        text, [](char c) { return is_upper(c) || is_lower(c) || is_digit(c); }, text.size());
    return true;
}

bool is_feature(std::string_view text) {
    if (!take_letters_and_digits(text, false))
        return false;
    const auto is_layer = [](char c) { return is_lower(c) || is_digit(c); };
    if (take(text, '[') && (take(text, is_layer, text.size()) == 0 || !take(text, ']')))
        return false;
    bool has_value = take(text, '=');
    do
        has_value = has_value && take_letters_and_digits(text, true);
    while (has_value && take(text, ','));
    return has_value && text.empty();
}

std::string_view name_of(std::string_view feature) { return feature.substr(0, feature.find('=')); }

bool comes_before(std::string_view left, std::string_view right) {
    const std::string_view a = name_of(left), b = name_of(right);
    const auto before = [](char x, char y) { return to_lower(x) < to_lower(y); };
    if (std::ranges::lexicographical_compare(a, b, before))
        return true;
    return a < b && !std::ranges::lexicographical_compare(b, a, before);
}

} // namespace

ConlluCharacter conllu_character(std::string_view text, std::size_t position, bool with_white_space) {
    const char first = text[position];
    if (is_ascii(first) && first > ' ' && first != '\x7F')
        return {1, true};
    if (first == ' ' && with_white_space) {
        const bool is_between = position > 0 && position + 1 < text.size();
        return {1, is_between && text[position - 1] != ' ' && text[position + 1] != ' '};
    }
    if (const std::size_t length = breaking_character(text, position); length != 0)
        return {length, false};
    const auto [c, length] = decode_character(text, position);
    return {length, is_utf8(first, length) && (with_white_space || !is_white_space(c))};
}

std::string_view without_wide_runs(std::string_view text, std::string& place) {
    std::size_t i = 0;
    while (i < text.size() && !is_wide_space(text, i))
        ++i;
    if (i == text.size())
        return text;
    place.clear();
    for (i = 0; i < text.size();) {
        std::size_t end = i, spaces = 0;
        bool has_wide = false;
        for (; end < text.size() && (text[end] == ' ' || is_wide_space(text, end)); ++spaces) {
            has_wide = has_wide || text[end] != ' ';
            end += decode_character(text, end).length;
        }
        if (spaces == 0)
            place += text[end++];
        else if (!has_wide || (spaces == 1 && i > 0 && end < text.size()))
            place.append(text, i, end - i);
        else if (i > 0 && end < text.size())
            place += ' ';
        i = end;
    }
    return place;
}

std::string comment_id(std::string_view id) {
    return comment(id, [](char32_t c, bool is_utf8) { return !is_utf8 || is_white_space(c); });
}

std::string comment_path(std::string_view path) {
    return comment(path, [](char32_t c, bool is_utf8) { return !is_utf8 || is_line_end(c); });
}

void sort_features(std::string_view list, std::vector<std::string_view>& fit, std::vector<std::string_view>& rest) {
    fit.clear();
    rest.clear();
    if (list == "_")
        return;
    if (list.size() > MAX_TOKEN_TEXT)
        return rest.push_back(list);
    for (std::size_t begin = 0; begin < list.size();) {
        const std::size_t end = std::min(list.find('|', begin), list.size());
        if (const std::string_view feature = trimmed(list.substr(begin, end - begin)); !feature.empty())
            (is_feature(feature) ? fit : rest).push_back(feature);
        begin = end + 1;
    }
    if (!std::ranges::is_sorted(fit, comes_before))
        std::ranges::stable_sort(fit, comes_before);
    std::size_t kept = 0;
    for (const std::string_view feature : fit)
        if (kept > 0 && name_of(fit[kept - 1]) == name_of(feature))
            rest.push_back(feature);
        else
            fit[kept++] = feature;
    fit.resize(kept);
}

} // namespace zelvor
