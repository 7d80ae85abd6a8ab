#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// The tags and values of a lexicon in those of Universal Dependencies: https://universaldependencies.org/la/
namespace zelvor {

/// What an analysis says of a word form, in the order of the fields of a lexicon line.
enum class Category { CASE, DEGREE, GENDER, MOOD, NUMBER, PERSON, PRONOUN_TYPE, TENSE, VERB_TYPE, VOICE };
constexpr std::size_t NUM_CATEGORIES = 10;

/// The universal tag of a lexicon's tag, or of a punctuation tag; empty where there is none.
std::string_view universal_tag(std::string_view tag);

/// Whether it is one of the universal tags.
bool is_universal_tag(std::string_view tag);

/// "Case=Abl,Dat|Number=Plur": what the values of the categories, several of one joined with ",", are in universal
/// features, sorted, each once. Values that are unknown give nothing.
std::string universal_features(std::span<const std::string, NUM_CATEGORIES> values);

} // namespace zelvor
