#pragma once

#include "training/Token.h"

#include <optional>
#include <string>
#include <string_view>

namespace zelvor {

struct TokenOutcome {
    bool is_written = false;
    bool is_replaced = false;                      ///< with "_" for something that would have broken the line
    std::optional<ConversionReport::Count> reason; ///< why it is left out, or what it lacks all the same
};

/// What a sentence looks like in training data; made token by token.
class SentenceFormat {
public:
    virtual ~SentenceFormat() = default;

    virtual TokenOutcome add(const Token& token) = 0;
    /// What may be written before the sentence ends, once it is much; empty otherwise. It is no longer part of it then.
    virtual std::string take_some() = 0;
    /// All of the sentence, with its end. Valid until it is cleared.
    virtual std::string_view end() = 0;
    virtual void clear() = 0;
};

} // namespace zelvor
