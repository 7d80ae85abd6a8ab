#include "training/AttributeTokens.h"

#include <algorithm>

namespace zelvor {

AttributeTokens::AttributeTokens(const ConversionOptions& options, TeiTokenReceiver& receiver) : m_receiver(receiver) {
    m_roles.add(options.skip, Role::SKIPPED);
    m_roles.add(options.word, Role::WORD);
    m_roles.add(options.punctuation_elements(), Role::PUNCTUATION);
    m_roles.add(options.sentence, Role::SENTENCE);
    m_roles.add({"choice"}, Role::CHOICE);
    m_rejected = options.original_choice ? ConversionOptions::Names{"corr", "reg", "expan"}
                                         : ConversionOptions::Names{"sic", "orig", "abbr"};
}

void AttributeTokens::begin_document() {
    m_open.clear();
    m_open_words.clear();
    m_skipped = 0;
}

bool AttributeTokens::is_rejected(std::string_view name) const {
    return !m_open.empty() && m_open.back() == Role::CHOICE && std::ranges::find(m_rejected, name) != m_rejected.end();
}

void AttributeTokens::begin_element(std::string_view qualified_name, const XmlAttributes& attributes) {
    const std::string_view name = local_name(qualified_name);
    if (m_skipped > 0 || is_rejected(name)) {
        ++m_skipped;
        return;
    }
    Role role = m_roles[name];
    if (role == Role::SKIPPED) {
        ++m_skipped;
        return;
    }
    const bool is_in_token = !m_open_words.empty();
    if (is_in_token && role != Role::CHOICE && (role != Role::WORD || m_token.is_punctuation))
        role = Role::NONE;
    m_open.push_back(role);
    if (role == Role::SENTENCE)
        m_receiver.begin_sentence(attributes);
    else if (role == Role::PUNCTUATION || (role == Role::WORD && !is_in_token))
        begin_token(attributes, role == Role::PUNCTUATION);
    else if (role == Role::WORD)
        begin_inner_word(attributes);
}

void AttributeTokens::end_element(std::string_view /*name*/) {
    if (m_skipped > 0) {
        --m_skipped;
        return;
    }
    if (m_open.empty())
        return;
    const Role role = m_open.back();
    m_open.pop_back();
    if (role == Role::SENTENCE)
        m_receiver.end_sentence();
    else if (role == Role::PUNCTUATION || (role == Role::WORD && m_open_words.size() == 1))
        end_token();
    else if (role == Role::WORD)
        end_inner_word();
}

void AttributeTokens::text(std::string_view text) {
    if (text.empty() || m_skipped > 0 || m_open_words.empty() || m_text.size() - m_piece > MAX_TOKEN_TEXT)
        return;
    const bool is_but_blanks = text.find_first_not_of(" \t\r\n") == std::string_view::npos;
    if (!is_but_blanks || m_text.size() == m_piece || m_text.back() != ' ')
        m_text += is_but_blanks ? " " : text;
}

void AttributeTokens::begin_token(const XmlAttributes& attributes, bool is_punctuation) {
    m_token.is_punctuation = is_punctuation;
    m_token.attributes.assign(attributes);
    m_open_words.push_back({0});
    m_num_words = 0;
    m_text.clear();
    m_own_text.clear();
    m_piece = 0;
}

void AttributeTokens::begin_inner_word(const XmlAttributes& attributes) {
    if (m_open_words.size() == 1)
        m_own_text.append(m_text, m_piece);
    else if (!m_open_words.back().holds_words)
        --m_num_words; // its place is the last one: it is none of the innermost
    m_open_words.back().holds_words = true;
    m_open_words.push_back({m_text.size()});
    m_piece = m_text.size();
    if (m_num_words == m_words.size())
        m_words.emplace_back();
    m_words[m_num_words++].attributes.assign(attributes);
}

void AttributeTokens::end_inner_word() {
    const OpenWord word = m_open_words.back();
    m_open_words.pop_back();
    m_piece = m_text.size();
    if (!word.holds_words)
        m_words[m_num_words - 1].text.assign(m_text, word.begin);
}

void AttributeTokens::end_token() {
    m_open_words.pop_back();
    if (m_num_words == 0) {
        m_token.text.swap(m_text);
    } else {
        m_own_text.append(m_text, m_piece);
        const bool has_text = m_own_text.find_first_not_of(" \t\r\n") != std::string::npos;
        m_token.text.swap(has_text ? m_own_text : m_text);
    }
    m_receiver.add(m_token, std::span(m_words).first(m_num_words));
}

} // namespace zelvor
