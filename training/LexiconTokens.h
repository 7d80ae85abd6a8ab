#pragma once

#include "training/ElementRoles.h"
#include "training/LexiconAnnotation.h"
#include "training/Sentences.h"
#include "training/XmlReader.h"

#include <string>
#include <string_view>

namespace zelvor {

/// Finds the sentences and tokens of documents whose words carry the JSON of a lexicon's ids, by the names of their
/// elements, without prefixes. The begin of a token ends the one that it stands in; CDATA is no part of its text.
class LexiconTokens : public XmlHandler {
public:
    /// All references must live as long as this.
    LexiconTokens(const ConversionOptions& options, LexiconAnnotation& annotation, Sentences& sentences);

    void begin_document() { m_is_in_token = false; }
    void begin_element(std::string_view name, const XmlAttributes& attributes) override;
    void end_element(std::string_view name) override;
    void text(std::string_view text) override;
    void cdata(std::string_view /*text*/) override {}

private:
    void begin_token(const XmlAttributes& attributes);
    void end_word();
    void end_punctuation();
    void end_token();

    ElementRoles m_roles;
    bool m_wants_attributes;
    LexiconAnnotation& m_annotation;
    Sentences& m_sentences;
    bool m_is_in_token = false;
    std::string m_text, m_analysis;
    bool m_is_read = false; ///< the analysis
    bool m_is_verbose;
    std::string m_told_analysis; ///< as the document has it, where tokens are told
    TokenAttributes m_attributes;
};

} // namespace zelvor
