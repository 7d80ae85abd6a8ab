#pragma once

#include <glibmm/ustring.h>

#include <string>

/// What class a tag or a token belongs to, judged by its text alone.
namespace zelvor {

/// The modal verbs; the empty string ends the list.
extern const std::string MODEL_LEMMAS[];

bool is_noun(const std::string& pos);      ///< one of the tags NE, NP, N, NN
bool is_adjective(const std::string& pos); ///< one of the tags JJ, ADJ
bool is_verb(const std::string& pos);      ///< one of the tags V, VB
bool is_modal(const std::string& lemma);   ///< one of MODEL_LEMMAS, exactly

/// ASCII letters only.
bool contains_latin_characters(const Glib::ustring& s);

/// A Roman numeral in either case. The empty text is one; a numeral ending in IV is none (neither is XIV).
bool is_latin_number(const Glib::ustring& s);

/// Digits or a Roman numeral with a period behind ("3.", "XII."), in any language.
bool is_odinal_number(const Glib::ustring& s, const std::string& language);

/// A Roman numeral, or a text that begins with a number other than 0, in any language.
bool is_cardinal_number(const Glib::ustring& s, const std::string& language);

} // namespace zelvor
