#pragma once

#include <glibmm/ustring.h>

#include <map>
#include <string>

/// Word forms and names, judged by the WordNet 3.0 database and by counts of spellings (a missing key counts as 0).
///
/// The caller opens the database with wninit() first; unopened, it holds no word. Its keys are in lower case with
/// underscores for blanks, and nothing here is thread-safe. Parts of speech: 1 noun, 2 verb, 3 adjective, 4 adverb.
namespace zelvor {

enum instance_ret {
    NOT_FOUND = 0, ///< not in WordNet as that part of speech
    TYPE = 1,      ///< an ordinary word
    CINSTANCE = 2  ///< a noun with a sense that is a named individual
};

/// `str` is looked up as written. NOT_FOUND for an unknown pos.
instance_ret is_instance(const std::string& str, int pos);

/// Whether WordNet derives `word_form` (in lower case) from some base form. Where it does not: for nouns and verbs, a
/// known word plus "s", or lemma + "s". `spos` is N or NE, V or VB, ADJ, ADV.
bool is_word_form(const Glib::ustring& word_form, const Glib::ustring& lemma, const std::string& spos);

/// A word that does not begin in lower case and names an individual, or that WordNet lacks and that is written so more
/// often than in lower case. With equal counts, several words none of which begins with a small ASCII letter.
bool uby_ne_recognizer(const Glib::ustring& s, const std::map<std::string, int>& map_statistics);

/// A word that names an individual, or that WordNet lacks and that is capitalised more often than written as it is.
bool clearnlp_ne_recognizer(const Glib::ustring& s, const std::map<std::string, int>& map_statistics);

/// By the counts alone.
bool clearnlp_capitalized_adj_recognizer(const Glib::ustring& s, const std::map<std::string, int>& map_statistics);

} // namespace zelvor
