#pragma once

#include "training/ConversionOptions.h"
#include "training/SurveyResult.h"
#include "training/XmlReader.h"
#include "utils/common_utils/hash_index.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// Looks at documents of which nothing is known: which elements could be tokens, what their attributes hold, and what
/// could be their sentences. A token is a w, pc, c or such with text or a form, or any element around one word that has
/// an attribute like pos or lemma. What is remembered is bounded, whatever the documents hold.
class Survey : public XmlHandler {
public:
    /// Elements of these names, without prefix, are passed over with all they hold; so are sic, orig and abbr of a
    /// choice.
    explicit Survey(const ConversionOptions::Names& skip);

    void begin_document();
    void begin_element(std::string_view name, const XmlAttributes& attributes) override;
    void end_element(std::string_view name) override;
    void text(std::string_view text) override;
    void cdata(std::string_view text) override { this->text(text); }

    std::uint64_t tokens() const { return m_tokens; } ///< so far

    /// Whoever needs but a hint reads no more tokens than these.
    static constexpr std::uint64_t TOKENS_OF_HINT = 100'000;

    /// Adds what another survey has found in the documents behind those of this one.
    void add(const Survey& behind);

    SurveyResult result() const;
    std::size_t bytes() const; ///< of memory, roughly

private:
    static constexpr std::size_t NONE = static_cast<std::size_t>(-1);

    enum class Role : std::uint8_t { OTHER, WORD, PUNCTUATION };

    /// An attribute of one element.
    struct Attribute {
        std::string name;
        std::uint64_t elements = 0;
        std::vector<std::uint64_t> hashes; ///< of its distinct values
        HashIndex index;
        bool has_more = false;
        std::vector<std::string> examples;
    };

    /// All elements of one name.
    struct Element {
        std::string name;
        Role role = Role::OTHER;
        bool is_skipped = false, is_choice = false, is_rejected = false; ///< the last within a choice
        std::size_t innermost = NONE;                                    ///< of those that are open, in m_open

        std::uint64_t elements = 0;
        std::uint64_t tokens = 0, marks = 0; ///< marks: tokens without letter or digit
        std::vector<Attribute> attributes;
        std::vector<SurveyResult::Pattern> patterns;

        std::uint64_t enclosing = 0, enclosed = 0, enclosed_end_marks = 0;
        std::vector<std::uint64_t> lengths; ///< how many enclose so many tokens, by length_class()
    };

    /// What is left of the text of a token.
    struct Text {
        std::uint64_t words = 0, bytes = 0; ///< bytes: without white space
        bool is_in_word = false, has_letter = false;
        std::string beginning; ///< short enough to need no memory of its own
    };

    struct Open {
        std::size_t element = NONE;
        std::size_t outer = NONE; ///< the next one of the same name around it
        std::size_t outer_token = NONE;
        bool may_be_token = false, is_declared_end = false;
        TokenSources sources;
        std::uint64_t tokens = 0, end_marks = 0;             ///< all within it
        std::uint64_t inner_tokens = 0, inner_end_marks = 0; ///< of these, within others of its name
        Text text;
    };

    std::size_t element_of(std::string_view name);
    std::size_t add_element(std::string_view name);
    Attribute* attribute_of(Element& element, std::string_view name, std::size_t guess);
    void read_attributes(Open& open, const XmlAttributes& attributes);
    void add_value(Attribute& attribute, std::string_view value);
    bool add_hash(Attribute& attribute, std::uint64_t hash);
    bool may_be_token(const Open& open) const;
    bool is_token(const Open& open) const;
    void add_token(Open& token);
    void add_enclosing(const Open& open);
    bool add_end_mark(const Open& token);
    void add_pattern(Element& element, const SurveyResult::Pattern& pattern);
    void add(Element& element, const Element& behind);
    static SurveyResult::TokenElement result_of(const Element& element);

    ConversionOptions::Names m_skip;
    std::vector<Element> m_elements;                           ///< in the order in which their names came
    std::map<std::string, std::size_t, std::less<>> m_numbers; ///< of elements, by their names
    std::size_t m_last = NONE;                                 ///< element looked up
    std::vector<SurveyResult::EndMark> m_end_marks;
    std::uint64_t m_tokens = 0, m_elements_cut = 0, m_attributes_cut = 0;
    std::size_t m_num_attributes = 0, m_num_hashes = 0; ///< of all elements

    std::vector<Open> m_open;
    std::size_t m_token = NONE;   ///< the innermost of m_open that may be a token
    std::size_t m_open_words = 0; ///< of m_open, those that are words for their names
    std::size_t m_skipped = 0;
    std::vector<std::pair<std::size_t, std::string_view>> m_values; ///< of one element, by number of the attribute
};

} // namespace zelvor
