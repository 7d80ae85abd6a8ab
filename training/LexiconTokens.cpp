#include "training/LexiconTokens.h"

#include <algorithm>

namespace zelvor {

LexiconTokens::LexiconTokens(const ConversionOptions& options, LexiconAnnotation& annotation, Sentences& sentences)
    : m_wants_attributes(options.format != ConversionOptions::Format::COLUMNS ||
                         std::ranges::find(options.columns, Column::Kind::OTHER, &Column::kind) !=
                             options.columns.end()),
      m_annotation(annotation), m_sentences(sentences), m_is_verbose(options.verbose) {
    m_roles.add(options.word, ElementRole::WORD);
    m_roles.add(options.punctuation_elements(), ElementRole::PUNCTUATION);
    m_roles.add(options.sentence, ElementRole::SENTENCE);
}

void LexiconTokens::begin_element(std::string_view name, const XmlAttributes& attributes) {
    const ElementRole role = m_roles[local_name(name)];
    if (role == ElementRole::SENTENCE)
        m_sentences.begin_sentence(attributes);
    else if (role != ElementRole::NONE)
        begin_token(attributes);
}

void LexiconTokens::begin_token(const XmlAttributes& attributes) {
    m_is_in_token = true;
    m_text.clear();
    m_analysis = attributes.value("lemma");
    m_is_read = false;
    if (m_is_verbose)
        m_told_analysis = m_analysis;
    if (m_wants_attributes)
        m_attributes.assign(attributes);
}

void LexiconTokens::end_element(std::string_view name) {
    const ElementRole role = m_roles[local_name(name)];
    if (role == ElementRole::WORD)
        end_word();
    else if (role == ElementRole::PUNCTUATION)
        end_punctuation();
    else if (role == ElementRole::SENTENCE)
        m_sentences.end_sentence();
}

void LexiconTokens::text(std::string_view text) {
    if (m_is_in_token && m_text.size() <= MAX_TOKEN_TEXT)
        m_text += text;
}

void LexiconTokens::end_word() {
    if (m_is_read && m_analysis.size() > 1)
        unwrap_analysis(m_analysis); // kept: a word within this one has left its own, unwrapped
    m_is_read = true;
    const Token& token = m_annotation.annotate_word(m_text, m_analysis, m_told_analysis, m_attributes);
    m_sentences.see(false);
    m_sentences.add(token, m_text);
    if (token.flaw != ConversionReport::NOT_JSON) // kept: text is gathered on then, up to the next token
        end_token();
}

void LexiconTokens::end_punctuation() {
    m_sentences.see(true);
    m_sentences.add(m_annotation.annotate_punctuation(m_text, m_attributes), m_text);
    end_token();
}

void LexiconTokens::end_token() {
    m_is_in_token = false;
    m_text.clear();
}

} // namespace zelvor
