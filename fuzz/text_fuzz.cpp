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

namespace zelvor::fuzz {

constexpr std::size_t MAX_COMPARED = 200; // time is proportional to the product of the lengths

void check_encodings(const std::string& s) {
    const std::string valid = encode_utf8(decode_utf8(s)), text = s.substr(0, s.find('\0'));
    require(is_valid_utf8(valid) && decode_utf8(valid) == decode_utf8(s), "what is encoded is decoded", s);
    require(is_valid_utf8(s) == (valid == s), "only valid text stays as it is", s);
    require(is_valid_utf8(text) == (g_utf8_validate_len(text.data(), text.size(), nullptr) != 0), "GLib agrees", s);
    require_equal(convert_encoding(convert_latin1_to_utf8(s), "ISO-8859-1", "UTF-8"), text,
                  "Latin-1 comes back from UTF-8");
    if (is_valid_utf8(s))
        require_equal(convert_encoding(convert_encoding(s, "GB18030", "UTF-8"), "UTF-8", "GB18030"), text,
                      "valid text comes back from another encoding");
    convert_encoding(s, "UTF-8", "UTF-16");
    for (const auto& mapped : {convert_lowercase(s), convert_uppercase(s), capitalize_first_unicode(s),
                               downcase_first_unicode(s), downcase_rest_unicode(s).raw()})
        require(is_valid_utf8(s) ? is_valid_utf8(mapped) : mapped == s, "a mapping keeps text valid", s);
    if (s.find("\u03A3") == std::string::npos) // a sigma alone becomes a final one
        require_equal(downcase_rest_unicode(downcase_first_unicode(s)), convert_lowercase(s),
                      "first and rest are the whole");
}

void check_strings(const std::string& s, const std::string& t) {
    require(split_tokens(capitalize_multi_token_expression(s).raw(), " ").size() == split_tokens(s, " ").size(),
            "no word is lost", s);
    std::vector<Glib::ustring> segments;
    tokenize_ustring(s, t.substr(0, 1), segments, true);
    if (!t.empty() && static_cast<unsigned char>(t[0]) < 0x80)
        require_equal(convert_list_to_string(segments.begin(), segments.end(), t.substr(0, 1)), s,
                      "segments make up the whole");
    if (is_valid_utf8(s)) // bytes that are no characters may make some when they are reverted
        require_equal(revert(revert(s)).raw(), s, "twice reverted is as before");
    require_equal(std::string(trimmed(s)), utrim(s).raw(), "both trim alike");
    string_replace(s, t, "");
    Glib::ustring replaced = s;
    replace(replaced, 'a', static_cast<unsigned int>(std::atoi(t.c_str())));
    require(!is_valid_utf8(s) || is_valid_utf8(replaced.raw()), "any number is a character or U+FFFD", s);
    require(search_string(s, t, 0, -1) <= search_string_last(s, t), "the first place is before the last", s);
    require(xml_escape(s).raw().find_first_of("<>\"'") == std::string::npos, "no mark is left", s);
    require(std::isfinite(convert_string_to_double(s)), "a number is finite", s);
    require(s.ends_with(get_suffix(t, s).raw()), "a suffix is the end of the form", s);
    require(!contains_latin_characters(s) || contains_alpha(s), "letters are letters", s);
}

void check_distance(const std::string& s, const std::string& t) {
    if (s.size() > MAX_COMPARED || t.size() > MAX_COMPARED)
        return;
    const int distance = levenshtein_distance(s, t, false), exchanging = levenshtein_distance(s, t, true);
    require(distance == levenshtein_distance(t, s, false), "a distance is symmetric", s);
    require(exchanging >= 0 && exchanging <= distance, "exchanges only shorten it", s);
    require((distance == 0) == (decode_utf8(s) == decode_utf8(t)), "it is 0 for equal texts only", s);
}

} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    const auto [s, t] = halves(data, size);
    check_encodings(s);
    check_strings(s, t);
    check_distance(s, t);
    return 0;
}
