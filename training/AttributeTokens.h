#pragma once

#include "training/ConversionOptions.h"
#include "training/ElementRoles.h"
#include "training/Token.h"
#include "training/TokenAttributes.h"
#include "training/XmlReader.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// A token as the document has it.
struct TeiToken {
    bool is_punctuation = false;
    TokenAttributes attributes;
    std::string text;
    std::string form; ///< left to whoever annotates it
};

/// What AttributeTokens hands over, in the order of the document.
class TeiTokenReceiver {
public:
    virtual ~TeiTokenReceiver() = default;
    virtual void begin_sentence(const XmlAttributes& attributes) = 0;
    virtual void end_sentence() = 0;
    /// A token where it ends. The words within it stand for it, where it has some; the text of a token that has is
    /// without theirs, unless nothing is left of it then.
    virtual void add(TeiToken& token, std::span<TeiToken> words) = 0;
};

/// Finds the sentences and tokens of documents by the names of their elements, without prefixes, and gathers what each
/// token holds: all text but that of elements to be skipped and of rejected children of a choice. A word that holds
/// words is handed over together with the innermost ones. Any other element within a word is but text, sentences and
/// punctuation included, and so is all within punctuation.
class AttributeTokens : public XmlHandler {
public:
    /// The receiver must live as long as this.
    AttributeTokens(const ConversionOptions& options, TeiTokenReceiver& receiver);

    void begin_document();
    void begin_element(std::string_view name, const XmlAttributes& attributes) override;
    void end_element(std::string_view name) override;
    void text(std::string_view text) override;
    void cdata(std::string_view text) override { this->text(text); }

private:
    using Role = ElementRole;

    struct OpenWord {
        std::size_t begin; ///< of its text
        bool holds_words = false;
    };

    bool is_rejected(std::string_view name) const;
    void begin_token(const XmlAttributes& attributes, bool is_punctuation);
    void begin_inner_word(const XmlAttributes& attributes);
    void end_inner_word();
    void end_token();

    ElementRoles m_roles;
    ConversionOptions::Names m_rejected; ///< children of a choice
    TeiTokenReceiver& m_receiver;
    std::vector<Role> m_open;  ///< elements, those within skipped ones excepted
    std::size_t m_skipped = 0; ///< elements that are open and skipped
    std::vector<OpenWord> m_open_words;
    TeiToken m_token;              ///< the outermost
    std::vector<TeiToken> m_words; ///< within it, without those that hold words; places are used again
    std::size_t m_num_words = 0;
    std::string m_text;      ///< of the outermost token
    std::size_t m_piece = 0; ///< of this text, since the last begin or end of a word
    std::string m_own_text;  ///< of the outermost token up to m_piece, without that of words within
};

} // namespace zelvor
