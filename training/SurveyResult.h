#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// Where a form, lemma, tag or features of a token can stand, as far as a survey knows.
enum class TokenSource : std::uint8_t {
    TEXT,
    NORM,
    FORM,
    LEMMA,
    LEXICON_JSON, ///< a lemma that is an analysis by a lexicon's ids
    HEAD_WORD,
    POS,
    ANA,
    MSD_UPOS,
    TYPE,
    C5,
    XPOS,
    CTAG,
    TAG,
    UPOS,
    MSD_PLAIN,    ///< without keys
    MSD_FEATURES, ///< keys other than those of tags
    FEATS,
    COUNT
};

using TokenSources = std::bitset<static_cast<std::size_t>(TokenSource::COUNT)>;

struct TokenSourceName {
    TokenSource source;
    std::string_view name; ///< as options name it
};

constexpr std::array<TokenSourceName, 17> TOKEN_SOURCE_NAMES{{{TokenSource::TEXT, "text"},
                                                              {TokenSource::NORM, "norm"},
                                                              {TokenSource::FORM, "form"},
                                                              {TokenSource::LEMMA, "lemma"},
                                                              {TokenSource::HEAD_WORD, "hw"},
                                                              {TokenSource::POS, "pos"},
                                                              {TokenSource::ANA, "ana"},
                                                              {TokenSource::MSD_UPOS, "msd:UPosTag"},
                                                              {TokenSource::TYPE, "type"},
                                                              {TokenSource::C5, "c5"},
                                                              {TokenSource::XPOS, "xpos"},
                                                              {TokenSource::CTAG, "ctag"},
                                                              {TokenSource::TAG, "tag"},
                                                              {TokenSource::UPOS, "upos"},
                                                              {TokenSource::MSD_PLAIN, "msd"},
                                                              {TokenSource::MSD_FEATURES, "msd"},
                                                              {TokenSource::FEATS, "feats"}}};

/// What a survey has found. Text is as in the documents, cut where it is long.
struct SurveyResult {
    struct Attribute {
        std::string name;                  ///< as written
        std::uint64_t elements = 0;        ///< with this attribute, not empty
        std::uint64_t distinct = 0;        ///< values of it
        bool has_more = false;             ///< values than could be told apart
        std::vector<std::string> examples; ///< its first values, at most three
    };
    /// Which sources the tokens of one element have.
    struct Pattern {
        TokenSources sources;
        std::uint64_t tokens = 0;
    };
    /// An element that looks like a token.
    struct TokenElement {
        std::string name;      ///< without prefix
        bool is_known = false; ///< for its name
        bool is_punctuation = false;
        std::uint64_t elements = 0;        ///< with or without text
        std::uint64_t tokens = 0;          ///< those that have a form and hold no other
        std::vector<Attribute> attributes; ///< in the order in which they first came
        std::vector<Pattern> patterns;
    };
    /// An element that encloses tokens. Those in an inner one of the same name are the inner one's.
    struct EnclosingElement {
        std::string name;
        std::uint64_t elements = 0; ///< that hold tokens
        std::uint64_t tokens = 0;
        std::uint64_t median = 0;    ///< tokens of one element; above 255 to a sixteenth
        std::uint64_t end_marks = 0; ///< of the tokens, those that usually end a sentence
    };
    struct EndMark {
        std::string text; ///< one character
        std::uint64_t tokens = 0;
        std::uint64_t declared = 0; ///< of these, with unit="sentence"
    };

    std::uint64_t tokens = 0;
    std::vector<TokenElement> token_elements; ///< the most frequent first
    std::vector<EnclosingElement> enclosing;  ///< those with the fewest tokens each first, inner ones before outer ones
    std::vector<EndMark> end_marks;
    std::uint64_t elements_cut = 0;   ///< not looked at, for there were too many names, or for a long one
    std::uint64_t attributes_cut = 0; ///< likewise
};

} // namespace zelvor
