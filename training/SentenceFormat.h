#pragma once

#include "training/Token.h"
#include "training/XmlReader.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zelvor {

/// In bytes, without the line feed. Some trainers read into 8192 bytes and stop, without a word, where a line fills
/// them.
constexpr std::size_t MAX_TOKEN_LINE = 8190;

/// A value that the format has no place for.
struct Unfit {
    ConversionReport::Count kind;
    std::string_view text;
};

/// A token as its line has it, valid until the format is called again, and as long as the token.
struct WrittenToken {
    std::string_view form, tag; ///< empty where no column holds it
};

struct TokenOutcome {
    bool is_written = false;
    bool is_replaced = false;                      ///< with "_" for something that would have broken the line
    std::optional<ConversionReport::Count> reason; ///< why it is left out, or what it lacks all the same
    std::span<const Unfit> unfit;                  ///< valid as long as the token
};

/// What a sentence looks like in training data; made token by token. A format that needs no more than the tokens need
/// not care where sentence elements, and tokens of several words, begin and end.
class SentenceFormat {
public:
    virtual ~SentenceFormat() = default;

    /// `number` is that of the document among all, from 1.
    virtual void begin_document(const std::string& /*path*/, std::size_t /*number*/) {}
    virtual void begin_sentence(const XmlAttributes& /*attributes*/) {}
    virtual void end_sentence() {}
    /// The words up to end_group() are one token.
    virtual void begin_group(const Token& /*whole*/) {}
    virtual void end_group() {}

    virtual TokenOutcome add(const Token& token) = 0;
    /// What may be written before the sentence ends, once it is much; empty otherwise. It is no longer part of it then.
    virtual std::string take_some() = 0;
    /// All of the sentence, with its end; to be called anew each time that it is written. Valid until the next call.
    virtual std::string_view end() = 0;
    /// Only what counts tokens needs these: the token that was just added, and written with this outcome;
    virtual WrittenToken last(const Token& /*token*/, const TokenOutcome& /*outcome*/) const { return {}; }
    /// and the next of the tokens that end() would write, from `position` on, which begins at 0 and is moved behind it;
    /// none after the last.
    virtual std::optional<WrittenToken> next(std::size_t& /*position*/) const { return std::nullopt; }
    /// Drops the tokens.
    virtual void clear() = 0;
};

} // namespace zelvor
