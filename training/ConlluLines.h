#pragma once

#include "training/ConversionOptions.h"
#include "training/SentenceFormat.h"
#include "training/SentenceIds.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// CoNLL-U, https://universaldependencies.org/format.html: ids and texts of sentences as comments; ten columns a word,
/// of which the syntactic ones are empty; one line more in front of several words that are one token. Values must be in
/// Unicode's normal form C.
class ConlluLines : public SentenceFormat {
public:
    explicit ConlluLines(const ConversionOptions& options); ///< which must live as long as this

    void begin_document(const std::string& path, std::size_t number) override;
    void begin_sentence(const XmlAttributes& attributes) override;
    void end_sentence() override;
    void begin_group(const Token& whole) override;
    void end_group() override;
    TokenOutcome add(const Token& token) override;
    std::string take_some() override { return {}; }
    std::string_view end() override;
    WrittenToken last(const Token& token, const TokenOutcome& outcome) const override;
    std::optional<WrittenToken> next(std::size_t& position) const override;
    void clear() override;

private:
    /// Several words that are one token.
    struct Group {
        std::string form; ///< as it is written; empty where there is none
        bool joins_left = false, joins_right = false;
        std::size_t begin = 0; ///< of its words' lines
        std::size_t words = 0; ///< before its own
    };

    /// Appends a column of the annotation; false where it breaks the line.
    bool append(std::string_view value, bool with_white_space, TokenOutcome& outcome);
    void append_universal_tag(std::string_view tag);
    void append_features(std::string_view features);
    void append_text(std::string_view form, bool joins_left, bool joins_right, std::size_t misc);

    const ConversionOptions& m_options;
    std::string m_path; ///< of the document
    std::size_t m_document = 0;
    std::vector<std::string> m_open; ///< sentence elements: their ids, empty where they have none
    std::size_t m_sentences = 0;     ///< of the document that are written
    SentenceIds m_ids;

    std::string m_lines; ///< of the sentence
    std::size_t m_words = 0;
    std::optional<Group> m_group;
    std::string m_text;         ///< that the comment holds
    bool m_joins_right = false; ///< the last token of the text
    std::size_t m_misc = 0;     ///< place of its last column

    std::string m_output, m_collapsed;
    bool m_is_collapsed = false; ///< the form of the last token
    std::vector<std::string_view> m_features, m_other_features;
    std::vector<Unfit> m_unfit;
};

} // namespace zelvor
