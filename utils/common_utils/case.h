#pragma once

#include <glibmm/ustring.h>

#include <string>

/// Upper and lower case of UTF-8 text by Unicode's mapping, and of single Latin-1 bytes.
///
/// The Unicode functions return invalid UTF-8 unchanged and an empty text for an empty one. A result may be longer than
/// its input, in bytes and in code points: some characters map to several.
namespace zelvor {

Glib::ustring capitalize_first_unicode_glib(const Glib::ustring& ustr);
std::string capitalize_first_unicode(const std::string& s);

Glib::ustring downcase_first_unicode_glib(const Glib::ustring& s);
std::string downcase_first_unicode(const std::string& s);

/// Leaves the first code point as it is and lower-cases all others.
Glib::ustring downcase_rest_unicode(const Glib::ustring& s);

std::string convert_lowercase(std::string s);
std::string convert_uppercase(const std::string& s);

/// Capitalises every blank-separated word. Words are joined by one blank; blanks at the ends disappear. Each word that
/// is invalid UTF-8 stays as it is.
Glib::ustring capitalize_multi_token_expression(const Glib::ustring& str);

/// The Latin-1 functions set the process locale to "de_DE ISO-8859-1" on every call (without effect where there is
/// none) and are not thread-safe. The umlauts and accented vowels of their tables change case in any locale; the
/// letters ç ð ñ ø ý þ ÿ do what the C library makes of them.
char capitalize_char_latin1(char c);
char downcase_char_latin1(char c);
std::string capitalize_first_latin1(const std::string& s);

} // namespace zelvor
