#include "training/LexiconAnnotation.h"

#include "training/normal_form.h"
#include "training/tags.h"
#include "utils/BaseLexicalEntry.h"

#include <algorithm>

namespace zelvor {

namespace {

ConversionReport::Count flaw_of(Analysis::Outcome outcome) {
    switch (outcome) {
    case Analysis::Outcome::UNPARSABLE:
        return ConversionReport::NOT_JSON;
    case Analysis::Outcome::WRONG_SHAPE:
        return ConversionReport::OTHER_JSON;
    case Analysis::Outcome::FOUND:
        return ConversionReport::UNKNOWN_ID;
    case Analysis::Outcome::ABSENT:
        break;
    }
    return ConversionReport::NO_ANALYSIS;
}

} // namespace

LexiconAnnotation::LexiconAnnotation(const ConversionOptions& options, const TagLexicon& lexicon, const TagMap* map,
                                     std::size_t jobs)
    : m_options(options), m_lexicon(lexicon), m_map(map), m_analysis_reader(AnalysisReader::Text::WRAPPED, jobs) {
    m_others.resize(static_cast<std::size_t>(std::ranges::count(options.columns, Column::Kind::OTHER, &Column::kind)));
}

const Token& LexiconAnnotation::annotate_word(std::string_view text, const std::string& analysis,
                                              const std::string& told_analysis, const TokenAttributes& attributes) {
    begin(text);
    if (analysis.size() <= 1)
        m_token.flaw = ConversionReport::NO_ANALYSIS;
    else
        read_analysis(text, analysis, told_analysis);
    return complete(attributes);
}

const Token& LexiconAnnotation::annotate_punctuation(std::string_view text, const TokenAttributes& attributes) {
    begin(text);
    const std::string_view tag = punctuation_tag(text);
    if (tag.empty()) {
        m_token.flaw = ConversionReport::NO_TAG;
    } else {
        m_token.pos = tag;
        m_token.upos = universal_tag(tag);
        m_token.lemma = text;
    }
    return complete(attributes);
}

Token& LexiconAnnotation::begin(std::string_view text) {
    m_token = {};
    m_token.form = text;
    m_token.is_overlong = text.size() > MAX_TOKEN_TEXT;
    return m_token;
}

void LexiconAnnotation::read_analysis(std::string_view text, const std::string& json, const std::string& told) {
    const Analysis& analysis = m_analysis_reader.read(m_json_reader, json);
    const bool has_id = analysis.outcome == Analysis::Outcome::FOUND;
    m_token.analysis = has_id ? m_lexicon.find(analysis.id) : nullptr;
    if (m_token.analysis) {
        m_token.lemma = analysis.lemma;
        m_token.pos = *m_token.analysis->pos;
        m_token.upos = *m_token.analysis->upos;
        m_token.feats = *m_token.analysis->feats;
        set_form(text, analysis.lemma);
        return;
    }
    m_token.flaw = flaw_of(analysis.outcome);
    if (m_options.verbose)
        m_detail = has_id ? std::to_string(analysis.id) : told;
    m_token.detail = m_detail;
}

/// An entry takes a form that begins with "-" for one that is abbreviated against the lemma.
void LexiconAnnotation::set_form(std::string_view text, std::string_view lemma) {
    if (!text.starts_with('-') || m_token.is_overlong)
        return;
    m_form = BaseLexicalEntry(std::string(lemma), std::string(text), "").get_word_form();
    m_token.form = m_form;
}

/// The other columns, and what is done with all of them.
const Token& LexiconAnnotation::complete(const TokenAttributes& attributes) {
    for (const Column& column : m_options.columns)
        if (column.kind == Column::Kind::OTHER)
            column.source.front().read(attributes, m_others[column.other]);
    m_token.others = m_others;
    m_token.attributes = &attributes;
    m_token.join = attributes.value("join");
    if (m_options.nfc) {
        const auto normalize = [](std::string_view& value, std::string& place) {
            place = value;
            to_normal_form(place);
            value = place;
        };
        normalize(m_token.form, m_form);
        normalize(m_token.lemma, m_lemma);
        normalize(m_token.pos, m_pos);
        std::ranges::for_each(m_others, to_normal_form);
    }
    if (m_map && !m_token.pos.empty()) {
        m_token.detail = m_token.pos;
        m_token.pos = m_map->map(m_token.pos);
        if (m_token.pos.empty())
            m_token.flaw = ConversionReport::MAPPED_AWAY;
    }
    return m_token;
}

} // namespace zelvor
