// Two texts through the string, case and encoding utilities.
#include "fuzz/fuzz.h"
#include "utils/common_utils/case.h"
#include "utils/common_utils/distance.h"
#include "utils/common_utils/encoding.h"
#include "utils/common_utils/numbers.h"
#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"
#include "utils/common_utils/xml.h"
#include "utils/lexicon_utils/candidates.h"
#include "utils/lexicon_utils/word_classes.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace zelvor::fuzz {
namespace {

constexpr std::size_t MAX_COMPARED = 200; // time is proportional to the product of the lengths

void check_utf8(const std::string& s) {
    const std::string valid = encode_utf8(decode_utf8(s));
    require(is_valid_utf8(valid) && decode_utf8(valid) == decode_utf8(s), "what is encoded is decoded", s);
    require(is_valid_utf8(s) == (valid == s), "only valid text stays as it is", s);
    const std::string text = s.substr(0, s.find('\0')); // GLib takes U+0000 for invalid
    require(is_valid_utf8(text) == (g_utf8_validate_len(text.data(), text.size(), nullptr) != 0), "GLib agrees", s);
    require_equal(convert_encoding(convert_latin1_to_utf8(s), "ISO-8859-1", "UTF-8"), text,
                  "Latin-1 comes back from UTF-8");
    if (is_valid_utf8(s))
        require_equal(convert_encoding(convert_encoding(s, "GB18030", "UTF-8"), "UTF-8", "GB18030"), text,
                      "valid text comes back from another encoding");
    convert_encoding(s, "UTF-8", "UTF-16");
    convert_encoding(s, "ISO-8859-1", s);
}

void check_case(const std::string& s) {
    const bool is_valid = is_valid_utf8(s);
    for (const auto& mapped : {convert_lowercase(s), convert_uppercase(s), capitalize_first_unicode(s),
                               downcase_first_unicode(s), downcase_rest_unicode(s).raw()}) {
        require(is_valid_utf8(mapped) == is_valid && mapped.empty() == s.empty(), "a mapping keeps text valid", s);
        require(is_valid || mapped == s, "invalid text is not mapped", s);
    }
    if (s.find("\u03A3") == std::string::npos) // a sigma alone becomes a final one
        require_equal(downcase_rest_unicode(downcase_first_unicode(s)), convert_lowercase(s),
                      "first and rest are the whole");
    const std::string capitalized = capitalize_multi_token_expression(s);
    require(split_tokens(capitalized, " ").size() == split_tokens(s, " ").size(), "no word is lost", s);
}

void check_splitting(const std::string& s, const std::string& sep) {
    std::vector<std::string> expected(1);
    for (const char c : s)
        if (sep.find(c) == std::string::npos)
            expected.back() += c;
        else
            expected.emplace_back();
    const bool begins = expected.size() > 1 && expected.front().empty(),
               ends = expected.size() > 1 && expected.back().empty();
    std::erase(expected, "");
    require(*tokenize(s, sep) == expected, "tokens stand between separators", s);
    const std::vector<std::string_view> fields = split_fields(s, sep);
    require(fields.size() == std::max<std::size_t>(expected.size() + begins + (ends || expected.empty()), 1),
            "an empty field is kept at either end", s);
    std::vector<int> numbers;
    parse_numbers(s, sep, numbers);
    require(numbers.size() == expected.size(), "a number a token", s);
    std::vector<Glib::ustring> segments;
    tokenize_ustring(s, sep.substr(0, 1), segments, true);
    if (!sep.empty() && static_cast<unsigned char>(sep[0]) < 0x80)
        require_equal(convert_list_to_string(segments.begin(), segments.end(), sep.substr(0, 1)), s,
                      "segments make up the whole");
}

void check_strings(const std::string& s, const std::string& t) {
    if (is_valid_utf8(s)) // bytes that are no characters may make some when they are reverted
        require_equal(revert(revert(s)).raw(), s, "twice reverted is as before");
    require_equal(std::string(trimmed(s)), utrim(s).raw(), "both trim alike");
    if (is_valid_utf8(s) && is_valid_utf8(t) && !s.ends_with(t))
        require(string_replace(s, t, "").raw().size() <= s.size(), "what is replaced by nothing is gone", s);
    Glib::ustring replaced = s;
    replace(replaced, s.empty() ? 0 : decode_character(s, 0).code_point,
            static_cast<unsigned int>(std::atoi(t.c_str())));
    require(!is_valid_utf8(s) || is_valid_utf8(replaced.raw()), "any number is a character or U+FFFD", s);
    const int found = search_string(s, t, 0, -1), last = search_string_last(s, t);
    require(found <= last && (last < 0 || s.compare(static_cast<std::size_t>(last), t.size(), t) == 0),
            "the last place", s);
    require(found < 0 || s.find(t) == static_cast<std::size_t>(found), "the first place", s);
    const std::string escaped = xml_escape(s).raw();
    require(escaped.find_first_of("<>\"'") == std::string::npos && escaped.size() >= s.size(), "no mark is left", s);
    require(std::isfinite(convert_string_to_double(s)), "a number is finite", s);
    require(s.ends_with(get_suffix(t, s).raw()), "a suffix is the end of the form", s);
    std::map<std::string, std::string> arguments;
    parse_arguments(s, arguments);
    require(arguments.size() <= split_tokens(s, "&").size(), "an argument a part", s);
    require(!is_latin_number(s) || convert_uppercase(s).find_first_not_of("IVXLCDM") == std::string::npos, "a numeral",
            s);
    require(!contains_latin_characters(s) || contains_alpha(s), "letters are letters", s);
}

void check_distance(const std::string& s, const std::string& t) {
    if (s.size() > MAX_COMPARED || t.size() > MAX_COMPARED)
        return;
    const auto length_s = static_cast<int>(decode_utf8(s).size()), length_t = static_cast<int>(decode_utf8(t).size());
    const int distance = levenshtein_distance(s, t, false), exchanging = levenshtein_distance(s, t, true);
    require(distance == levenshtein_distance(t, s, false), "a distance is symmetric", s);
    require(!is_valid_utf8(s) || !is_valid_utf8(t) || distance == levenshtein_distance(revert(s), revert(t), false),
            "and the same from behind", s);
    require(std::abs(length_s - length_t) <= distance && distance <= std::max(length_s, length_t), "it is bounded", s);
    require(exchanging >= 0 && exchanging <= distance && (s != t || exchanging == 0), "exchanges only shorten it", s);
    require((distance == 0) == (decode_utf8(s) == decode_utf8(t)), "it is 0 for equal texts only", s);
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    const auto [s, t] = halves(data, size);
    check_utf8(s);
    check_case(s);
    check_splitting(s, t);
    check_strings(s, t);
    check_distance(s, t);
    return 0;
}
