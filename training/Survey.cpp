#include "training/Survey.h"

#include "utils/common_utils/utf8.h"

#include <glib.h>

#include <algorithm>
#include <bit>
#include <iterator>
#include <numeric>
#include <utility>

namespace zelvor {

namespace {

constexpr std::size_t MAX_NAME = 100; // bytes
constexpr std::size_t MAX_ELEMENTS = 300, MAX_ATTRIBUTES = 1000, MAX_PATTERNS = 100, MAX_END_MARKS = 20;
constexpr std::size_t MAX_DISTINCT = 10'000, MAX_ALL_DISTINCT = 200'000;
constexpr std::size_t MAX_EXAMPLE = 60, MAX_EXAMPLES = 3;
constexpr std::size_t MAX_BEGINNING = 8; // bytes

constexpr std::string_view BLANKS = " \t\r\n";
constexpr std::string_view WORD_NAMES[] = {"w", "tok", "dtok", "token", "word"};
constexpr std::string_view PUNCTUATION_NAMES[] = {"pc", "c", "punct", "pct"};
constexpr std::string_view SENTENCE_ENDS[] = {".", "?", "!", "…", "。", "？", "！", "؟", "।"};
constexpr std::string_view REJECTED[] = {"sic", "orig", "abbr"};

/// Nothing else than tokens has them.
constexpr TokenSource TOKEN_ATTRIBUTES[] = {TokenSource::LEMMA,        TokenSource::HEAD_WORD, TokenSource::POS,
                                            TokenSource::MSD_UPOS,     TokenSource::C5,        TokenSource::XPOS,
                                            TokenSource::CTAG,         TokenSource::UPOS,      TokenSource::MSD_PLAIN,
                                            TokenSource::MSD_FEATURES, TokenSource::FEATS};

bool contains(const auto& list, std::string_view text) { return std::ranges::find(list, text) != std::end(list); }

bool is_blank(std::string_view text) { return text.find_first_not_of(BLANKS) == std::string_view::npos; }

constexpr std::size_t bit(TokenSource source) { return static_cast<std::size_t>(source); }

/// 0 to 255 by themselves, sixteen classes for each doubling above.
std::size_t length_class(std::uint64_t length) {
    if (length < 256)
        return length;
    const auto shift = static_cast<std::size_t>(std::bit_width(length)) - 5;
    return 256 + (shift - 4) * 16 + ((length >> shift) - 16);
}

std::uint64_t length_of_class(std::size_t number) {
    if (number < 256)
        return number;
    return std::uint64_t{16 + (number - 256) % 16} << ((number - 256) / 16 + 4);
}

std::uint64_t median_of(const std::vector<std::uint64_t>& lengths) {
    const std::uint64_t all = std::reduce(lengths.begin(), lengths.end());
    std::uint64_t below = 0;
    for (std::size_t i = 0; i < lengths.size(); ++i)
        if ((below += lengths[i]) * 2 >= all)
            return length_of_class(i);
    return 0;
}

/// What the wrapped JSON of an analysis begins and ends with.
bool looks_like_analysis(std::string_view lemma) {
    return lemma.size() > 4 && lemma[1] == '{' && lemma[lemma.size() - 2] == '}' &&
           lemma.substr(0, 20).find("ls") != std::string_view::npos;
}

TokenSources sources_of_msd(std::string_view msd) {
    TokenSources sources;
    if (msd.find('=') == std::string_view::npos) {
        sources.set(bit(TokenSource::MSD_PLAIN));
        return sources;
    }
    for (std::size_t begin = 0; begin < msd.size();) {
        const std::size_t end = std::min(msd.find('|', begin), msd.size());
        const std::string_view pair = msd.substr(begin, end - begin);
        if (pair.starts_with("UPosTag="))
            sources.set(bit(TokenSource::MSD_UPOS));
        else if (!pair.starts_with("XPosTag="))
            sources.set(bit(TokenSource::MSD_FEATURES));
        if (sources.count() == 2)
            break;
        begin = end + 1;
    }
    return sources;
}

TokenSources sources_of(std::string_view attribute, std::string_view value) {
    if (attribute == "msd")
        return sources_of_msd(value);
    TokenSources sources;
    for (const TokenSourceName& known : TOKEN_SOURCE_NAMES)
        if (known.name == attribute && known.source != TokenSource::TEXT)
            sources.set(bit(known.source));
    if (attribute == "lemma" && looks_like_analysis(value))
        sources.set(bit(TokenSource::LEXICON_JSON));
    return sources;
}

} // namespace

Survey::Survey(const ConversionOptions::Names& skip) : m_skip(skip) {}

void Survey::begin_document() {
    m_open.clear();
    for (Element& element : m_elements)
        element.innermost = NONE;
    m_token = NONE;
    m_open_words = m_skipped = 0;
}

std::size_t Survey::element_of(std::string_view name) {
    if (m_last != NONE && m_elements[m_last].name == name)
        return m_last;
    const auto found = m_numbers.find(name);
    return m_last = found != m_numbers.end() ? found->second : add_element(name);
}

/// There is always room for names that are known.
std::size_t Survey::add_element(std::string_view name) {
    Element element;
    element.role = contains(WORD_NAMES, name)          ? Role::WORD
                   : contains(PUNCTUATION_NAMES, name) ? Role::PUNCTUATION
                                                       : Role::OTHER;
    element.is_skipped = contains(m_skip, name);
    element.is_rejected = contains(REJECTED, name);
    element.is_choice = name == "choice";
    const bool is_known = element.role != Role::OTHER || element.is_skipped || element.is_choice || name == "s";
    if (name.size() > MAX_NAME || (m_elements.size() >= MAX_ELEMENTS && !is_known))
        return NONE;
    element.name = name;
    m_numbers.emplace(name, m_elements.size());
    m_elements.push_back(std::move(element));
    return m_elements.size() - 1;
}

Survey::Attribute* Survey::attribute_of(Element& element, std::string_view name, std::size_t guess) {
    std::vector<Attribute>& attributes = element.attributes;
    if (guess < attributes.size() && attributes[guess].name == name)
        return &attributes[guess];
    const auto found = std::ranges::find(attributes, name, &Attribute::name);
    if (found != attributes.end())
        return &*found;
    if (name.size() > MAX_NAME || m_num_attributes >= MAX_ATTRIBUTES) {
        ++m_attributes_cut;
        return nullptr;
    }
    ++m_num_attributes;
    attributes.emplace_back().name = name;
    return &attributes.back();
}

void Survey::begin_element(std::string_view qualified_name, const XmlAttributes& attributes) {
    if (m_skipped > 0) {
        ++m_skipped;
        return;
    }
    Open open;
    open.element = element_of(local_name(qualified_name));
    if (open.element == NONE) {
        ++m_elements_cut;
        m_open.push_back(open);
        return;
    }
    Element& element = m_elements[open.element];
    const bool is_in_choice =
        !m_open.empty() && m_open.back().element != NONE && m_elements[m_open.back().element].is_choice;
    if (element.is_skipped || (element.is_rejected && is_in_choice)) {
        ++m_skipped;
        return;
    }
    ++element.elements;
    read_attributes(open, attributes);
    open.outer = std::exchange(element.innermost, m_open.size());
    if (open.may_be_token) {
        open.outer_token = std::exchange(m_token, m_open.size());
        m_open_words += element.role == Role::WORD;
    }
    m_open.push_back(std::move(open));
}

void Survey::read_attributes(Open& open, const XmlAttributes& attributes) {
    Element& element = m_elements[open.element];
    m_values.clear();
    std::size_t guess = 0;
    attributes.for_each([&](std::string_view name, std::string_view value) {
        Attribute* const attribute = attribute_of(element, name, guess);
        if (!attribute)
            return;
        guess = static_cast<std::size_t>(attribute - element.attributes.data()) + 1;
        if (is_blank(value))
            return;
        ++attribute->elements;
        open.sources |= sources_of(name, value);
        open.is_declared_end = open.is_declared_end || (name == "unit" && value == "sentence");
        m_values.emplace_back(guess - 1, value);
    });
    open.may_be_token = may_be_token(open);
    if (open.may_be_token)
        for (const auto& [number, value] : m_values)
            add_value(element.attributes[number], value);
}

void Survey::add_value(Attribute& attribute, std::string_view value) {
    if (attribute.has_more || !add_hash(attribute, std::hash<std::string_view>()(value)))
        return;
    if (attribute.examples.size() < MAX_EXAMPLES)
        attribute.examples.emplace_back(value.substr(0, MAX_EXAMPLE));
}

/// Whether it is new.
bool Survey::add_hash(Attribute& attribute, std::uint64_t hash) {
    const auto is_equal = [&](std::uint32_t number) { return attribute.hashes[number] == hash; };
    if (attribute.index.find(hash, is_equal) != HashIndex::NONE)
        return false;
    if (attribute.hashes.size() >= MAX_DISTINCT || m_num_hashes >= MAX_ALL_DISTINCT) {
        attribute.has_more = true;
        return false;
    }
    ++m_num_hashes;
    attribute.hashes.push_back(hash);
    attribute.index.add([&](std::uint32_t number) { return attribute.hashes[number]; });
    return true;
}

/// Within a word only other words are, as its punctuation and its morphemes are but its text.
bool Survey::may_be_token(const Open& open) const {
    const Role role = m_elements[open.element].role;
    if (m_open_words > 0)
        return role == Role::WORD;
    return role != Role::OTHER ||
           std::ranges::any_of(TOKEN_ATTRIBUTES, [&](TokenSource source) { return open.sources.test(bit(source)); });
}

void Survey::text(std::string_view text) {
    if (m_skipped > 0 || m_token == NONE)
        return;
    Text& token = m_open[m_token].text;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (BLANKS.find(text[i]) != std::string_view::npos) {
            token.is_in_word = false;
            continue;
        }
        token.words += !std::exchange(token.is_in_word, true);
        ++token.bytes;
        if (token.beginning.size() < MAX_BEGINNING)
            token.beginning += text[i];
        if (!token.has_letter)
            token.has_letter = g_unichar_isalnum(decode_character(text, i).code_point);
    }
}

void Survey::end_element(std::string_view /*name*/) {
    if (m_skipped > 0) {
        --m_skipped;
        return;
    }
    if (m_open.empty())
        return;
    Open open = std::move(m_open.back());
    m_open.pop_back();
    if (open.element != NONE) {
        Element& element = m_elements[open.element];
        element.innermost = open.outer;
        if (open.may_be_token) {
            m_token = open.outer_token;
            m_open_words -= element.role == Role::WORD;
        }
        if (open.may_be_token && is_token(open))
            add_token(open);
        else if (open.tokens > open.inner_tokens && element.role == Role::OTHER)
            add_enclosing(open);
        if (open.outer != NONE) {
            m_open[open.outer].inner_tokens += open.tokens;
            m_open[open.outer].inner_end_marks += open.end_marks;
        }
    }
    if (!m_open.empty()) {
        m_open.back().tokens += open.tokens;
        m_open.back().end_marks += open.end_marks;
    }
}

bool Survey::is_token(const Open& open) const {
    if (open.tokens > 0)
        return false;
    if (m_elements[open.element].role == Role::OTHER)
        return open.text.words == 1;
    return open.text.words > 0 || open.sources.test(bit(TokenSource::NORM)) ||
           open.sources.test(bit(TokenSource::FORM));
}

void Survey::add_token(Open& token) {
    Element& element = m_elements[token.element];
    ++m_tokens;
    ++element.tokens;
    const bool is_mark = token.text.words > 0 && !token.text.has_letter;
    element.marks += is_mark;
    token.sources.set(bit(TokenSource::TEXT), token.text.words > 0);
    add_pattern(element, {token.sources, 1});
    token.tokens = 1;
    token.end_marks = is_mark && add_end_mark(token);
}

void Survey::add_pattern(Element& element, const SurveyResult::Pattern& pattern) {
    auto& patterns = element.patterns;
    const auto found = std::ranges::find(patterns, pattern.sources, &SurveyResult::Pattern::sources);
    if (found != patterns.end())
        found->tokens += pattern.tokens;
    else if (patterns.size() < MAX_PATTERNS)
        patterns.push_back(pattern);
}

/// Whether the token usually ends a sentence.
bool Survey::add_end_mark(const Open& token) {
    const std::string& text = token.text.beginning;
    const bool is_end = contains(SENTENCE_ENDS, text) || token.is_declared_end;
    if (!is_end || token.text.bytes > text.size() || decode_character(text, 0).length != text.size())
        return token.is_declared_end;
    const auto found = std::ranges::find(m_end_marks, text, &SurveyResult::EndMark::text);
    if (found != m_end_marks.end()) {
        ++found->tokens;
        found->declared += token.is_declared_end;
    } else if (m_end_marks.size() < MAX_END_MARKS) {
        m_end_marks.push_back({text, 1, token.is_declared_end});
    }
    return true;
}

void Survey::add_enclosing(const Open& open) {
    Element& element = m_elements[open.element];
    const std::uint64_t tokens = open.tokens - open.inner_tokens;
    ++element.enclosing;
    element.enclosed += tokens;
    element.enclosed_end_marks += open.end_marks - open.inner_end_marks;
    const std::size_t number = length_class(tokens);
    if (element.lengths.size() <= number)
        element.lengths.resize(number + 1);
    ++element.lengths[number];
}

void Survey::add(const Survey& behind) {
    for (const Element& element : behind.m_elements)
        if (const std::size_t number = element_of(element.name); number != NONE)
            add(m_elements[number], element);
        else
            m_elements_cut += element.elements;
    for (const SurveyResult::EndMark& mark : behind.m_end_marks) {
        const auto found = std::ranges::find(m_end_marks, mark.text, &SurveyResult::EndMark::text);
        if (found != m_end_marks.end()) {
            found->tokens += mark.tokens;
            found->declared += mark.declared;
        } else if (m_end_marks.size() < MAX_END_MARKS) {
            m_end_marks.push_back(mark);
        }
    }
    m_tokens += behind.m_tokens;
    m_elements_cut += behind.m_elements_cut;
    m_attributes_cut += behind.m_attributes_cut;
}

void Survey::add(Element& element, const Element& behind) {
    element.elements += behind.elements;
    element.tokens += behind.tokens;
    element.marks += behind.marks;
    element.enclosing += behind.enclosing;
    element.enclosed += behind.enclosed;
    element.enclosed_end_marks += behind.enclosed_end_marks;
    element.lengths.resize(std::max(element.lengths.size(), behind.lengths.size()));
    for (std::size_t i = 0; i < behind.lengths.size(); ++i)
        element.lengths[i] += behind.lengths[i];
    for (const SurveyResult::Pattern& pattern : behind.patterns)
        add_pattern(element, pattern);
    for (const Attribute& other : behind.attributes) {
        Attribute* const attribute = attribute_of(element, other.name, 0);
        if (!attribute)
            continue;
        attribute->elements += other.elements;
        for (std::size_t i = 0; i < other.hashes.size() && !attribute->has_more; ++i)
            if (add_hash(*attribute, other.hashes[i]) && i < other.examples.size() &&
                attribute->examples.size() < MAX_EXAMPLES)
                attribute->examples.push_back(other.examples[i]);
        attribute->has_more = attribute->has_more || other.has_more;
    }
}

SurveyResult::TokenElement Survey::result_of(const Element& element) {
    SurveyResult::TokenElement result;
    result.name = element.name;
    result.is_known = element.role != Role::OTHER;
    result.is_punctuation =
        element.role == Role::PUNCTUATION || (!result.is_known && element.marks * 10 >= element.tokens * 9);
    result.elements = element.elements;
    result.tokens = element.tokens;
    result.patterns = element.patterns;
    for (const Attribute& attribute : element.attributes)
        result.attributes.push_back(
            {attribute.name, attribute.elements, attribute.hashes.size(), attribute.has_more, attribute.examples});
    return result;
}

SurveyResult Survey::result() const {
    SurveyResult result;
    result.tokens = m_tokens;
    result.end_marks = m_end_marks;
    result.elements_cut = m_elements_cut;
    result.attributes_cut = m_attributes_cut;
    for (const Element& element : m_elements) {
        const bool is_known = element.role != Role::OTHER;
        if (element.tokens > 0 && (is_known || element.tokens * 2 >= element.elements))
            result.token_elements.push_back(result_of(element));
        else if (element.enclosing > 0)
            result.enclosing.push_back({element.name, element.enclosing, element.enclosed, median_of(element.lengths),
                                        element.enclosed_end_marks});
    }
    std::ranges::reverse(result.enclosing); // of two alike, the inner one came later
    std::ranges::stable_sort(result.token_elements, std::greater<>(), &SurveyResult::TokenElement::tokens);
    std::ranges::stable_sort(result.enclosing, std::less<>(), &SurveyResult::EnclosingElement::median);
    return result;
}

std::size_t Survey::bytes() const {
    std::size_t bytes = sizeof *this + m_num_hashes * 2 * sizeof(std::uint64_t) + m_num_attributes * sizeof(Attribute);
    for (const Element& element : m_elements)
        bytes += sizeof element + element.lengths.size() * sizeof element.lengths[0] +
                 element.patterns.size() * sizeof element.patterns[0];
    return bytes;
}

} // namespace zelvor
