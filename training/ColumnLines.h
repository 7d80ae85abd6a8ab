#pragma once

#include "training/ConversionOptions.h"
#include "training/SentenceFormat.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace zelvor {

/// Bytes that the character at `position` has when it is white space in a trainer's eyes, a control character, a line
/// separator or a lone surrogate; 0 for any other.
std::size_t breaking_character(std::string_view text, std::size_t position);

/// Training lines that every trainer reads alike, one a token, an empty line behind a sentence: columns that are
/// neither empty nor hold white space or control characters, in lines short enough for fixed buffers.
class ColumnLines : public SentenceFormat {
public:
    explicit ColumnLines(const ConversionOptions& options); ///< which must live as long as this

    TokenOutcome add(const Token& token) override;
    std::string take_some() override;
    std::string_view end() override;
    WrittenToken last(const Token& token, const TokenOutcome& outcome) const override;
    std::optional<WrittenToken> next(std::size_t& position) const override;
    void clear() override;

    /// What the column holds of a token; empty where it has none.
    static std::string_view value_of(const Column& column, const Token& token);

private:
    TokenOutcome add_line(const Token& token);
    void append_odd(Column::Kind kind, std::string_view value, TokenOutcome& outcome);

    const ConversionOptions& m_options;
    const Column& m_tag;              ///< the column that must not be empty
    std::size_t m_tag_number, m_form; ///< numbers of columns; that of the form, which there may be none of
    bool m_has_form;
    std::string m_lines;
    bool m_has_end = false; ///< these lines
};

/// The column without which a token has no tag: "pos", or the last one where there is none.
const Column& tag_column(const ConversionOptions& options);

/// The first line of a file with a header: the names of the columns.
std::string header_line(const ConversionOptions& options);

} // namespace zelvor
