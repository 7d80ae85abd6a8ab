#pragma once

#include "training/ConversionReport.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zelvor {

struct LexiconAnalysis;
class TokenAttributes;

/// Of a longer text no more is kept: the token breaks its line anyway.
constexpr std::size_t MAX_TOKEN_TEXT = std::size_t{1024} * 1024;

/// A token with its annotation. The views live as long as the call that hands it over.
struct Token {
    std::string_view form, lemma, pos, upos, feats;
    const LexiconAnalysis* analysis = nullptr;   ///< of the lexicon, where it has one
    const TokenAttributes* attributes = nullptr; ///< of its element; for those who gather tokens, or null
    std::span<const std::string> others;         ///< of the other columns, in their order
    std::string_view join; ///< whether it touches its neighbours, as the attribute has it; for CoNLL-U only
    std::optional<ConversionReport::Count> flaw; ///< why it has no annotation
    std::string_view detail;                     ///< of the flaw, to be told
    bool is_overlong = false;                    ///< its text was not even read to its end
};

} // namespace zelvor
