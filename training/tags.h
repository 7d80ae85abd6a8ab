#pragma once

#include <string>
#include <string_view>

/// The tags of training tokens.
namespace zelvor {

/// The tag of a punctuation mark, compared as a whole text; empty where there is none.
std::string_view punctuation_tag(std::string_view text);

/// The tag of a word: the part of speech of its lexicon entry, or that of the entry's lemma, the finer noun class, for
/// a noun. Refers to one of the arguments.
const std::string& word_tag(const std::string& pos, const std::string& lemma_pos);

} // namespace zelvor
