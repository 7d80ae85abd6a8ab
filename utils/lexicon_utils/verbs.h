#pragma once

#include <string>

/// Tags and forms of verbs, and the English genitive.
namespace zelvor {

class EnglishLexicalEntry;

/// Gives forms of "be", "do" and the modal verbs, whose lemma has the tag VB, their own tags, compared exactly. Most
/// tags are the word form's; of "being", "am" and "do" the lemma gets the finer one.
void concretize_verb_pos(EnglishLexicalEntry& english_lexical_entry);

/// Nine columns (word form before lemma in each triple) and a present indicative of the first and second person, 15
/// tab-separated columns in all, no line end.
std::string std_verb_to_string(const std::string& word_form, const std::string& lemma, const std::string& pos,
                               const std::string& resource_lemma, const std::string& resource_word_form,
                               const std::string& resource_pos, const std::string& source_lemma,
                               const std::string& source_word_form, const std::string& source_pos);

/// "coniugatio-1" for "1st", "coniugatio-intrans-1" for an intransitive one, and so on to "4th"; empty for all else.
std::string convert_to_wiktionary_conjugation_type(const std::string& conjugation_type, bool transitivity);

/// With "'" behind a final "s" and "'s" otherwise.
std::string create_genitive_form(const std::string& lexicon_entry);

} // namespace zelvor
