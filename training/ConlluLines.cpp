#include "training/ConlluLines.h"

#include "training/conllu_values.h"
#include "training/universal_features.h"
#include "utils/common_utils/text.h"

#include <algorithm>
#include <utility>

namespace zelvor {

namespace {

constexpr std::string_view EMPTY = "_", NO_SPACE = "SpaceAfter=No";
constexpr std::size_t MAX_NUMBERS = 42; ///< in bytes, of a group

bool joins_left(const Token& token) { return token.join == "left" || token.join == "both"; }
bool joins_right(const Token& token) { return token.join == "right" || token.join == "both"; }

/// Of these, tokens are left out as they are from columns.
bool is_no_token(ConversionReport::Count flaw) {
    return flaw == ConversionReport::NO_FORM || flaw == ConversionReport::MAPPED_AWAY;
}

constexpr std::size_t FORM = 1, XPOS = 4;

/// A column of the line that begins here.
std::string_view column_at(std::string_view lines, std::size_t begin, std::size_t column) {
    for (; column > 0; --column)
        begin = lines.find('\t', begin) + 1;
    return lines.substr(begin, lines.find('\t', begin) - begin);
}

} // namespace

ConlluLines::ConlluLines(const ConversionOptions& options) : m_options(options) {}

void ConlluLines::begin_document(const std::string& path, std::size_t number) {
    m_path = comment_path(path);
    m_document = number;
    m_open.clear();
    m_sentences = 0;
    m_ids = {};
}

void ConlluLines::begin_sentence(const XmlAttributes& attributes) {
    if (m_options.has_lexicon) // what follows the end of a sentence belongs to it, up to the next
        m_open.clear();
    std::string id = comment_id(attributes.value("xml:id"));
    if (const std::string_view n = attributes.value("n"); id.empty() && !n.empty())
        id = std::to_string(m_document) + '-' + comment_id(n);
    m_open.push_back(std::move(id));
}

void ConlluLines::end_sentence() {
    if (!m_options.has_lexicon)
        m_open.pop_back();
}

void ConlluLines::begin_group(const Token& whole) {
    m_group = Group{{}, joins_left(whole), joins_right(whole), m_lines.size(), m_words};
    const std::string_view form = without_wide_runs(whole.form, m_collapsed);
    if (form.size() + MAX_NUMBERS > MAX_TOKEN_LINE)
        return;
    for (std::size_t i = 0; i < form.size();) {
        const ConlluCharacter character = conllu_character(form, i, false);
        m_group->form += character.fits ? form.substr(i, character.length) : EMPTY;
        i += character.length;
    }
}

void ConlluLines::end_group() {
    if (!m_group)
        return;
    const Group group = *std::exchange(m_group, {});
    if (m_words - group.words > 1 && !group.form.empty()) {
        const std::string line = std::to_string(group.words + 1) + '-' + std::to_string(m_words) + '\t' + group.form +
                                 "\t_\t_\t_\t_\t_\t_\t_\t_\n";
        m_lines.insert(group.begin, line);
        append_text(group.form, group.joins_left, group.joins_right, group.begin + line.size() - 2);
        return;
    }
    for (std::size_t begin = group.begin, word = group.words + 1; begin < m_lines.size(); ++word) {
        const std::size_t size = m_lines.size(), end = m_lines.find('\n', begin);
        append_text(column_at(m_lines, begin, FORM), group.joins_left && word == group.words + 1,
                    group.joins_right && word == m_words, end - 1);
        begin = end + 1 + m_lines.size() - size;
    }
}

/// A token is written without what it lacks, unless that is its form.
TokenOutcome ConlluLines::add(const Token& token) {
    const std::string_view form = without_wide_runs(token.form, m_collapsed);
    const bool has_form = !trimmed(form).empty();
    m_is_collapsed = form.data() != token.form.data();
    if (token.flaw && is_no_token(*token.flaw))
        return {false, false, token.flaw, {}};
    if (!has_form && (token.flaw || !m_options.has_lexicon))
        return {false, false, ConversionReport::NO_FORM, {}};
    TokenOutcome outcome{true, false, token.flaw, {}};
    if (m_options.has_lexicon && !token.flaw && token.pos.empty())
        outcome.reason = ConversionReport::NO_TAG;
    const std::size_t begin = m_lines.size();
    m_unfit.clear();
    m_lines.append(std::to_string(m_words + 1)) += '\t';
    bool fits = append(form, true, outcome);
    if (form.empty())
        fits = outcome.is_replaced = m_options.on_bad_token == ConversionOptions::BadToken::REPLACE;
    m_lines += '\t';
    fits = append(without_wide_runs(token.lemma, m_collapsed), true, outcome) && fits;
    append_universal_tag(token.upos);
    fits = append(token.pos, false, outcome) && fits;
    append_features(token.feats);
    m_lines += "\t_\t_\t_\t";
    if (!fits || m_lines.size() + NO_SPACE.size() - begin > MAX_TOKEN_LINE) {
        m_lines.resize(begin);
        return {false, false, ConversionReport::BREAKS_LINE, {}};
    }
    m_lines += "_\n";
    ++m_words;
    if (!m_group)
        append_text(column_at(m_lines, begin, FORM), joins_left(token), joins_right(token), m_lines.size() - 2);
    outcome.unfit = m_unfit;
    return outcome;
}

WrittenToken ConlluLines::last(const Token& token, const TokenOutcome& outcome) const {
    if (!outcome.is_replaced && !m_is_collapsed && !token.pos.empty())
        return {token.form, token.pos};
    std::size_t position = m_lines.rfind('\n', m_lines.size() - 2) + 1; // or 0
    return *next(position);
}

std::optional<WrittenToken> ConlluLines::next(std::size_t& position) const {
    while (position < m_lines.size()) {
        const std::size_t begin = position;
        position = m_lines.find('\n', begin) + 1;
        const bool is_of_several = column_at(m_lines, begin, 0).find('-') != std::string_view::npos;
        if (!is_of_several)
            return WrittenToken{column_at(m_lines, begin, FORM), column_at(m_lines, begin, XPOS)};
    }
    return std::nullopt;
}

bool ConlluLines::append(std::string_view value, bool with_white_space, TokenOutcome& outcome) {
    if (value.empty())
        m_lines += EMPTY;
    const auto is_plain = [](char c) { return c > ' ' && c < '\x7F'; }; // most values are nothing else
    auto i = static_cast<std::size_t>(std::ranges::find_if_not(value, is_plain) - value.begin());
    m_lines += value.substr(0, i);
    for (bool in_run = false; i < value.size();) { // of characters that do not fit
        const ConlluCharacter character = conllu_character(value, i, with_white_space);
        if (!character.fits && m_options.on_bad_token != ConversionOptions::BadToken::REPLACE)
            return false;
        if (character.fits || !in_run)
            m_lines += character.fits ? value.substr(i, character.length) : EMPTY;
        in_run = !character.fits;
        outcome.is_replaced = outcome.is_replaced || in_run;
        i += character.length;
    }
    return true;
}

void ConlluLines::append_universal_tag(std::string_view tag) {
    const bool fits = is_universal_tag(tag);
    if (!fits && !tag.empty() && tag != EMPTY)
        m_unfit.push_back({ConversionReport::UPOS_UNFIT, tag});
    ((m_lines += '\t') += fits ? tag : EMPTY) += '\t';
}

void ConlluLines::append_features(std::string_view features) {
    sort_features(features, m_features, m_other_features);
    for (const std::string_view feature : m_other_features)
        m_unfit.push_back({ConversionReport::FEATS_UNFIT, feature});
    char separator = '\t';
    for (const std::string_view feature : m_features)
        (m_lines += std::exchange(separator, '|')) += feature;
    if (m_features.empty())
        m_lines += "\t_";
}

/// At `misc` is the last column of the token, still empty.
void ConlluLines::append_text(std::string_view form, bool joins_left, bool joins_right, std::size_t misc) {
    const bool is_first = m_text.empty();
    if (!is_first && !m_joins_right && !joins_left)
        m_text += ' ';
    m_text += form;
    const auto set_misc = [this](std::size_t place) { m_lines.replace(place, EMPTY.size(), NO_SPACE); };
    if (joins_right)
        set_misc(misc);
    if (!is_first && joins_left && !m_joins_right) {
        set_misc(m_misc);
        misc += NO_SPACE.size() - EMPTY.size();
    }
    m_joins_right = joins_right;
    m_misc = misc;
}

std::string_view ConlluLines::end() {
    ++m_sentences;
    const std::string& own = m_open.back();
    const std::string id = own.empty() ? std::to_string(m_document) + '-' + std::to_string(m_sentences) : own;
    m_output.clear();
    if (m_sentences == 1)
        m_output.append("# newdoc id = ").append(m_path) += '\n';
    m_output.append("# sent_id = ").append(m_ids.add(id)).append("\n# text = ").append(m_text).append("\n");
    return m_output.append(m_lines) += '\n';
}

void ConlluLines::clear() {
    m_lines.clear();
    m_text.clear();
    m_words = 0;
    m_group.reset();
    m_joins_right = false;
}

} // namespace zelvor
