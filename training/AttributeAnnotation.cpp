#include "training/AttributeAnnotation.h"

#include "training/normal_form.h"
#include "utils/common_utils/utf8.h"

#include <algorithm>

namespace zelvor {

namespace {

bool wants(const ConversionOptions& options, Column::Kind kind) {
    return std::ranges::find(options.columns, kind, &Column::kind) != options.columns.end();
}

} // namespace

AttributeAnnotation::AttributeAnnotation(const ConversionOptions& options, const TagMap* map, Sentences& sentences)
    : m_options(options), m_map(map), m_sentences(sentences),
      m_is_conllu(options.format == ConversionOptions::Format::CONLLU),
      m_wants_lemma(wants(options, Column::Kind::LEMMA)), m_wants_upos(wants(options, Column::Kind::UPOS)),
      m_wants_feats(wants(options, Column::Kind::FEATS)), m_punctuation_tag(options.punctuation_tag) {
    if (options.nfc)
        to_normal_form(m_punctuation_tag);
    for (const char32_t mark : decode_utf8(options.break_marks))
        append_utf8(m_marks.emplace_back(), mark);
    m_others.resize(static_cast<std::size_t>(std::ranges::count(options.columns, Column::Kind::OTHER, &Column::kind)));
}

void AttributeAnnotation::begin_sentence(const XmlAttributes& attributes) { m_sentences.begin_sentence(attributes); }

void AttributeAnnotation::end_sentence() { m_sentences.end_sentence(); }

void AttributeAnnotation::add(TeiToken& token, std::span<TeiToken> words) {
    for (TeiToken& word : words)
        read_form(word);
    if (std::ranges::any_of(words, [](const TeiToken& word) { return !word.form.empty(); })) {
        if (m_is_conllu)
            begin_group(token);
        for (const TeiToken& word : words)
            add_token(word);
        m_sentences.end_group();
        break_behind(words.back().form);
        return;
    }
    read_form(token);
    if (token.is_punctuation && token.form.empty())
        return; // none
    add_token(token);
    break_behind(token.form);
}

void AttributeAnnotation::begin_group(TeiToken& whole) {
    read_form(whole);
    Token annotated;
    annotated.form = whole.form;
    annotated.join = whole.attributes.value("join");
    m_sentences.begin_group(annotated);
}

void AttributeAnnotation::read_form(TeiToken& token) const {
    m_options.form.read(token.attributes, token.text, token.form);
    if (m_options.nfc)
        to_normal_form(token.form);
}

void AttributeAnnotation::read_value(const ValueSources& sources, const TeiToken& token, std::string& value) const {
    sources.read(token.attributes, {}, value);
    if (m_options.nfc)
        to_normal_form(value);
}

void AttributeAnnotation::add_token(const TeiToken& token) {
    Token annotated;
    annotated.form = token.form;
    annotated.attributes = &token.attributes;
    annotated.is_overlong = token.form.size() + 2 > MAX_TOKEN_TEXT; // it may be cut, but for blanks at its ends
    if (token.form.empty() && !annotated.is_overlong)
        annotated.flaw = ConversionReport::NO_FORM;
    if (!annotated.flaw && m_sentences.is_in_sentence()) {
        read_tag(token, annotated);
        if (m_wants_lemma)
            read_value(m_options.lemma, token, m_lemma);
        if (m_wants_upos)
            read_value(m_options.upos, token, m_upos);
        if (m_wants_feats)
            read_value(m_options.feats, token, m_feats);
        for (const Column& column : m_options.columns)
            if (column.kind == Column::Kind::OTHER) {
                column.source.front().read(token.attributes, m_others[column.other]);
                if (m_options.nfc)
                    to_normal_form(m_others[column.other]);
            }
        annotated.lemma = m_lemma;
        annotated.upos = m_upos;
        annotated.feats = m_feats;
        annotated.others = m_others;
        if (m_is_conllu)
            annotated.join = token.attributes.value("join");
    }
    m_sentences.see(token.is_punctuation);
    m_sentences.add(annotated, annotated.form);
}

void AttributeAnnotation::read_tag(const TeiToken& token, Token& annotated) {
    read_value(m_options.pos, token, m_pos);
    if (m_pos.empty() && token.is_punctuation)
        m_pos = m_punctuation_tag;
    annotated.pos = m_pos;
    if (!m_map || m_pos.empty())
        return;
    annotated.pos = m_map->map(m_pos);
    annotated.detail = m_pos;
    if (annotated.pos.empty())
        annotated.flaw = ConversionReport::MAPPED_AWAY;
}

void AttributeAnnotation::break_behind(const std::string& form) {
    if (m_sentences.is_in_sentence() && std::ranges::find(m_marks, form) != m_marks.end())
        m_sentences.break_sentence();
}

} // namespace zelvor
