#include "utils/common_utils/case.h"

#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"

#include <cctype>
#include <clocale>
#include <string_view>

namespace zelvor {

namespace {

using CaseMapping = Glib::ustring (Glib::ustring::*)() const;
constexpr CaseMapping UPPERCASE = &Glib::ustring::uppercase;
constexpr CaseMapping LOWERCASE = &Glib::ustring::lowercase;

/// Maps piece by piece, because GLib ends a text at its first NUL. `text` is valid UTF-8.
std::string map_case(std::string_view text, CaseMapping mapping) {
    std::string result;
    for (;;) {
        const std::size_t nul = text.find('\0');
        result += (Glib::ustring(std::string(text.substr(0, nul))).*mapping)().raw();
        if (nul == std::string_view::npos)
            return result;
        result += '\0';
        text.remove_prefix(nul + 1);
    }
}

std::string map_first(std::string_view text, CaseMapping mapping) {
    if (text.empty() || !is_valid_utf8(text))
        return std::string(text);
    const std::size_t length = decode_character(text, 0).length;
    return map_case(text.substr(0, length), mapping).append(text.substr(length));
}

/// The Latin-1 capitals whose small letter stands 32 above: À to Ü without Ç Ð Ñ × Ø.
constexpr bool is_tabled_capital(int byte) {
    return (byte >= 192 && byte <= 198) || (byte >= 200 && byte <= 207) || (byte >= 210 && byte <= 214) ||
           (byte >= 217 && byte <= 220);
}

/// kept: every call changes the locale of the whole process, which callers may rely on.
void set_latin1_locale() { std::setlocale(LC_ALL, "de_DE ISO-8859-1"); }

int byte_value(int c) { return static_cast<unsigned char>(c); }

} // namespace

Glib::ustring capitalize_first_unicode_glib(const Glib::ustring& ustr) { return map_first(ustr.raw(), UPPERCASE); }

std::string capitalize_first_unicode(const std::string& s) { return map_first(s, UPPERCASE); }

Glib::ustring downcase_first_unicode_glib(const Glib::ustring& s) { return map_first(s.raw(), LOWERCASE); }

std::string downcase_first_unicode(const std::string& s) { return map_first(s, LOWERCASE); }

Glib::ustring downcase_rest_unicode(const Glib::ustring& s) {
    const std::string& text = s.raw();
    if (text.empty() || !is_valid_utf8(text))
        return s;
    const std::size_t length = decode_character(text, 0).length;
    return text.substr(0, length) + map_case(std::string_view(text).substr(length), LOWERCASE);
}

std::string convert_lowercase(std::string s) { return is_valid_utf8(s) ? map_case(s, LOWERCASE) : s; }

std::string convert_uppercase(const std::string& s) { return is_valid_utf8(s) ? map_case(s, UPPERCASE) : s; }

Glib::ustring capitalize_multi_token_expression(const Glib::ustring& str) {
    std::string result;
    for (const std::string_view word : split_tokens(str.raw(), " ")) {
        if (!result.empty())
            result += ' ';
        result += map_first(word, UPPERCASE);
    }
    return result;
}

char capitalize_char_latin1(char c) {
    set_latin1_locale();
    const int upper = byte_value(std::toupper(static_cast<signed char>(c)));
    return static_cast<char>(is_tabled_capital(upper - 32) ? upper - 32 : upper);
}

char downcase_char_latin1(char c) {
    set_latin1_locale();
    const int lower = byte_value(std::tolower(static_cast<signed char>(c)));
    return static_cast<char>(is_tabled_capital(lower) ? lower + 32 : lower);
}

std::string capitalize_first_latin1(const std::string& s) {
    std::string result = s;
    if (!result.empty())
        result.front() = capitalize_char_latin1(result.front());
    return result;
}

} // namespace zelvor
