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

namespace zelvor::fuzz {

void check_encodings(const std::string& s) {
    const std::string valid = encode_utf8(decode_utf8(s)), text = s.substr(0, s.find('\0'));
    require(is_valid_utf8(s) == (valid == s), "only valid text stays as it is", s);
    require(is_valid_utf8(text) == (g_utf8_validate_len(text.data(), text.size(), nullptr) != 0), "GLib agrees", s);
    require_equal(convert_encoding(convert_latin1_to_utf8(s), "ISO-8859-1", "UTF-8"), text,
                  "Latin-1 comes back from UTF-8");
    if (is_valid_utf8(s))
        require_equal(convert_encoding(convert_encoding(s, "GB18030", "UTF-8"), "UTF-8", "GB18030"), text,
                      "valid text comes back from another encoding");
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
    if (is_valid_utf8(s)) // bytes that are no characters may make some when they are reverted
        require_equal(revert(revert(s)).raw(), s, "twice reverted is as before");
    require_equal(std::string(trimmed(s)), utrim(s).raw(), "both trim alike");
    Glib::ustring replaced = string_replace(s, t, "");
    replace(replaced, 'a', static_cast<unsigned int>(std::atoi(t.c_str())));
    require(search_string(s, t, 0, -1) <= search_string_last(s, t), "the first place is before the last", s);
    require(xml_escape(s).raw().find_first_of("<>\"'") == std::string::npos, "no mark is left", s);
    require(std::isfinite(convert_string_to_double(s)), "a number is finite", s);
    require(s.ends_with(get_suffix(t, s).raw()), "a suffix is the end of the form", s);
    const std::string a = s.substr(0, 200), b = t.substr(0, 200); // time is proportional to the product of the lengths
    require((levenshtein_distance(a, b, true) == 0) == (decode_utf8(a) == decode_utf8(b)), "0 is for equal texts", s);
}

} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto [s, t] = zelvor::fuzz::halves(data, size);
    zelvor::fuzz::check_encodings(s);
    zelvor::fuzz::check_strings(s, t);
    return 0;
}
