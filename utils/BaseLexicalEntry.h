#pragma once

#include "utils/WordFormContainer.h"

#include <iosfwd>
#include <set>
#include <string>
#include <vector>

namespace Glib {
class ustring;
}
namespace xmlpp {
class Element;
}

namespace zelvor {

class CodePoints;

/// The smallest dictionary analysis: a form, its lemma, its tag.
///
/// The word form is stored relative to the lemma: "-" where the two are equal, "-us" for amicus under amic, and as it
/// stands otherwise. A stored form that begins with "-" always reads back as the lemma and the rest, whoever wrote it.
class BaseLexicalEntry : public WordFormContainer {
public:
    BaseLexicalEntry() = default;
    /// Stores word_form abbreviated; unlike set_word_form also against an empty lemma ("abc" is stored as "-abc").
    BaseLexicalEntry(const std::string& lemma, const std::string& word_form, const std::string& pos);

    std::string get_word_form() const override; ///< spelled out
    void set_word_form(const std::string& word_form) override;

    /// Splits at tabs and "#" (adjacent ones count as one) and hands the tokens to parse_tokens.
    virtual void parse(const std::string& line);
    /// One line of the SUSANNE corpus: six fields separated by tabs, of which 2, 3 and 4 are tag, word and lemma. Any
    /// other line is echoed to standard output and ends the process with status 10.
    virtual void parse_susanne(const std::string& line);
    /// One token annotation of the OANC corpus: attributes "from" and "to" (code points into text, "to" exclusive) and
    /// children with "name" and "value". A span that does not begin with the lemma is moved by one or two characters.
    /// Throws std::out_of_range where the span begins beyond the end of text; a null element changes nothing.
    virtual void parse_oanc(xmlpp::Element* pel, const Glib::ustring& text);
    /// The same for the tokens of a whole document: each is looked for from the one before it, not from the beginning.
    void parse_oanc(xmlpp::Element* pel, CodePoints& text);
    virtual std::string get_lemma() const;
    virtual std::string get_abbreviated_word_form() const; ///< as stored
    /// Tokens: word form, lemma, part of speech of the lemma, part of speech. A lone word form is not stored.
    virtual void parse_tokens(const std::vector<std::string>& tokens);

    std::string get_pos() const { return m_pos; }
    std::string get_lemma_pos() const { return m_lemma_pos; }
    void set_pos(const std::string& pos) { m_pos = pos; }
    void set_lemma_pos(const std::string& lemma_pos) { m_lemma_pos = lemma_pos; }
    /// Keeps the stored form, not the spelled-out one: "-us" under amic becomes domus when the lemma becomes dom.
    void set_lemma(const std::string& lemma);

    /// By spelled-out word form, then lemma, then part of speech, as bytes.
    bool operator<(const BaseLexicalEntry& other) const;

protected:
    std::string m_lemma;
    std::string m_pos;
    std::string m_lemma_pos;
};

/// The elements in ascending order, joined with ",".
void write_set(std::set<std::string>& values, std::ostream& os);

/// Writes form, lemma and part of speech with a tab behind each; no line end.
std::ostream& operator<<(std::ostream& os, BaseLexicalEntry& entry);

} // namespace zelvor
