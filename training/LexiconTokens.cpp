#include "training/LexiconTokens.h"

#include <algorithm>

namespace zelvor {

namespace {

bool contains(const ConversionOptions::Names& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

} // namespace

LexiconTokens::LexiconTokens(const ConversionOptions& options, LexiconAnnotation& annotation, Sentences& sentences)
    : m_options(options), m_punctuation(options.punctuation_elements()),
      m_wants_attributes(std::ranges::find(options.columns, Column::Kind::OTHER, &Column::kind) !=
                         options.columns.end()),
      m_annotation(annotation), m_sentences(sentences) {}

void LexiconTokens::begin_element(std::string_view qualified_name, const XmlAttributes& attributes) {
    const std::string_view name = local_name(qualified_name);
    if (contains(m_options.word, name) || contains(m_punctuation, name))
        begin_token(attributes);
    else if (contains(m_options.sentence, name))
        m_sentences.begin_sentence();
}

void LexiconTokens::begin_token(const XmlAttributes& attributes) {
    m_is_in_token = true;
    m_text.clear();
    m_analysis = attributes.value("lemma");
    if (m_wants_attributes)
        m_attributes.assign(attributes);
}

void LexiconTokens::end_element(std::string_view qualified_name) {
    const std::string_view name = local_name(qualified_name);
    if (contains(m_options.word, name))
        end_word();
    else if (contains(m_punctuation, name))
        end_punctuation();
    else if (contains(m_options.sentence, name))
        m_sentences.end_sentence();
}

void LexiconTokens::text(std::string_view text) {
    if (m_is_in_token && m_text.size() <= MAX_TOKEN_TEXT)
        m_text += text;
}

void LexiconTokens::end_word() {
    const Token& token = m_annotation.annotate_word(m_text, m_analysis, m_attributes);
    m_sentences.add(token, m_text);
    if (token.flaw != ConversionReport::NOT_JSON) // kept: text is gathered on then, up to the next token
        end_token();
}

void LexiconTokens::end_punctuation() {
    m_sentences.add(m_annotation.annotate_punctuation(m_text, m_attributes), m_text);
    end_token();
}

void LexiconTokens::end_token() {
    m_is_in_token = false;
    m_text.clear();
}

} // namespace zelvor
