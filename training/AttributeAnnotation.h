#pragma once

#include "training/AttributeTokens.h"
#include "training/ConversionOptions.h"
#include "training/Sentences.h"
#include "training/TagMap.h"
#include "training/Token.h"

#include <string>
#include <vector>

namespace zelvor {

/// Annotates tokens from their attributes and hands them on.
class AttributeAnnotation : public TeiTokenReceiver {
public:
    /// All references must live as long as this; the map may be null.
    AttributeAnnotation(const ConversionOptions& options, const TagMap* map, Sentences& sentences);

    void begin_sentence(const XmlAttributes& attributes) override;
    void end_sentence() override;
    void add(TeiToken& token, std::span<TeiToken> words) override;

private:
    void read_form(TeiToken& token) const;
    void add_token(const TeiToken& token);
    void begin_group(TeiToken& whole);
    void read_value(const ValueSources& sources, const TeiToken& token, std::string& value) const;
    void read_tag(const TeiToken& token, Token& annotated);
    void break_behind(const std::string& form);

    const ConversionOptions& m_options;
    const TagMap* m_map;
    Sentences& m_sentences;
    bool m_is_conllu;
    bool m_wants_lemma, m_wants_upos, m_wants_feats;
    std::string m_punctuation_tag;
    std::vector<std::string> m_marks; ///< that end a sentence
    std::string m_lemma, m_pos, m_upos, m_feats;
    std::vector<std::string> m_others;
};

} // namespace zelvor
