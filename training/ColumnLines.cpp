#include "training/ColumnLines.h"

#include "training/TagLexicon.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zelvor {

namespace {

constexpr std::size_t ENOUGH_TO_WRITE = 65536;

/// Whether a breaking character can begin with this byte.
constexpr auto MAY_BREAK = [] {
    std::array<bool, 256> may_break{};
    for (std::size_t c = 0; c <= ' '; ++c)
        may_break[c] = true;
    for (const unsigned char c : {0x7F, 0xC2, 0xE2, 0xED})
        may_break[c] = true;
    return may_break;
}();

bool is_breaking(std::string_view value) {
    if (value.empty())
        return true;
    for (std::size_t i = 0; i < value.size(); ++i)
        if (MAY_BREAK[static_cast<unsigned char>(value[i])] && breaking_character(value, i) != 0)
            return true;
    return false;
}

void append_replaced(std::string& line, std::string_view value) {
    if (value.empty())
        line += '_';
    bool in_run = false;
    for (std::size_t i = 0; i < value.size();) {
        const std::size_t length = breaking_character(value, i);
        if (length == 0)
            line += value[i];
        else if (!in_run)
            line += '_';
        in_run = length != 0;
        i += std::max<std::size_t>(length, 1);
    }
}

} // namespace

std::size_t breaking_character(std::string_view text, std::size_t position) {
    const auto byte = [&](std::size_t i) {
        return position + i < text.size() ? static_cast<unsigned char>(text[position + i]) : 0U;
    };
    const unsigned int first = byte(0);
    if (first <= ' ' || first == 0x7F)
        return 1;
    if (first == 0xC2 && byte(1) >= 0x80 && byte(1) <= 0x9F) // U+0080 to U+009F
        return 2;
    if (first == 0xED && byte(1) >= 0xA0) // a surrogate, which JSON can name
        return byte(2) == 0 ? 2 : 3;
    return first == 0xE2 && byte(1) == 0x80 && (byte(2) == 0xA8 || byte(2) == 0xA9) ? 3 : 0; // U+2028, U+2029
}

const Column& tag_column(const ConversionOptions& options) {
    const auto pos = std::ranges::find(options.columns, Column::Kind::POS, &Column::kind);
    return pos == options.columns.end() ? options.columns.back() : *pos;
}

ColumnLines::ColumnLines(const ConversionOptions& options)
    : m_options(options), m_tag(tag_column(options)),
      m_tag_number(static_cast<std::size_t>(&m_tag - options.columns.data())),
      m_form(static_cast<std::size_t>(std::ranges::find(options.columns, Column::Kind::FORM, &Column::kind) -
                                      options.columns.begin())),
      m_has_form(m_form < options.columns.size()) {}

std::string_view ColumnLines::value_of(const Column& column, const Token& token) {
    switch (column.kind) {
    case Column::Kind::FORM:
        return token.form;
    case Column::Kind::LEMMA:
        return token.lemma;
    case Column::Kind::POS:
        return token.pos;
    case Column::Kind::UPOS:
        return token.upos;
    case Column::Kind::FEATS:
        return token.feats;
    case Column::Kind::OTHER:
        return token.others[column.other];
    default:
        break;
    }
    if (!token.analysis)
        return {};
    return *token.analysis->categories[static_cast<std::size_t>(column.category())];
}

/// Appends what stands for a value that cannot be written as it is, if there is something.
void ColumnLines::append_odd(Column::Kind kind, std::string_view value, TokenOutcome& outcome) {
    const bool may_be_empty = !m_options.has_lexicon || kind > Column::Kind::POS;
    if (value.empty() && may_be_empty) {
        m_lines += '_';
    } else if (m_options.on_bad_token == ConversionOptions::BadToken::REPLACE) {
        append_replaced(m_lines, value);
        outcome.is_replaced = true;
    } else {
        outcome.is_written = false;
    }
}

TokenOutcome ColumnLines::add(const Token& token) {
    if (token.flaw)
        return {false, false, token.flaw, {}};
    if (!m_options.has_lexicon && value_of(m_tag, token).empty())
        return {false, false, ConversionReport::NO_TAG, {}};
    return add_line(token);
}

/// Its outcome is made where it is returned to: it would cost much to copy right after its bytes are set.
TokenOutcome ColumnLines::add_line(const Token& token) {
    const std::size_t begin = m_lines.size();
    TokenOutcome outcome{true, false, {}, {}};
    for (const Column& column : m_options.columns) {
        if (m_lines.size() > begin)
            m_lines += m_options.separator;
        const std::string_view value = value_of(column, token);
        if (!is_breaking(value))
            m_lines += value;
        else
            append_odd(column.kind, value, outcome);
    }
    if (!outcome.is_written || m_lines.size() - begin > MAX_TOKEN_LINE) {
        m_lines.resize(begin);
        outcome = {false, false, ConversionReport::BREAKS_LINE, {}};
        return outcome;
    }
    m_lines += '\n';
    return outcome;
}

/// Most values are in the line as they come; those that are not, are read from it.
WrittenToken ColumnLines::last(const Token& token, const TokenOutcome& outcome) const {
    const std::string_view tag = m_tag.kind == Column::Kind::POS ? token.pos : value_of(m_tag, token);
    if (!outcome.is_replaced && !tag.empty() && !(m_has_form && token.form.empty()))
        return {m_has_form ? token.form : std::string_view(), tag};
    std::size_t position = m_lines.rfind('\n', m_lines.size() - 2) + 1; // or 0
    return *next(position);
}

std::optional<WrittenToken> ColumnLines::next(std::size_t& position) const {
    if (position >= m_lines.size())
        return std::nullopt;
    const std::string_view rest = std::string_view(m_lines).substr(position);
    std::string_view line = rest.substr(0, rest.find('\n'));
    position += line.size() + 1;
    WrittenToken token;
    for (std::size_t column = 0; column < m_options.columns.size(); ++column) {
        const std::string_view value = line.substr(0, line.find(m_options.separator));
        if (column == m_form)
            token.form = value;
        if (column == m_tag_number)
            token.tag = value;
        line.remove_prefix(std::min(value.size() + 1, line.size()));
    }
    return token;
}

std::string ColumnLines::take_some() {
    return m_lines.size() > ENOUGH_TO_WRITE ? std::exchange(m_lines, {}) : std::string();
}

std::string_view ColumnLines::end() {
    if (!std::exchange(m_has_end, true))
        m_lines += '\n';
    return m_lines;
}

void ColumnLines::clear() {
    m_lines.clear();
    m_has_end = false;
}

std::string header_line(const ConversionOptions& options) {
    std::string line;
    for (const Column& column : options.columns) {
        const bool is_ambiguous =
            column.kind == Column::Kind::OTHER && std::ranges::count(options.columns, column.name, &Column::name) > 1;
        (line.empty() ? line : line += options.separator).append(is_ambiguous ? "@" : "").append(column.name);
    }
    return line + '\n';
}

} // namespace zelvor
