#include "training/SurveyAdvice.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <span>

namespace zelvor {

namespace {

using enum TokenSource;

constexpr TokenSource DEFAULT_POS[] = {POS, ANA, MSD_UPOS, TYPE};
constexpr TokenSource OTHER_POS[] = {C5, XPOS, CTAG, TAG, MSD_PLAIN, UPOS};
constexpr std::string_view DEFAULT_WORD[] = {"w"};
constexpr std::string_view DEFAULT_PUNCTUATION[] = {"pc", "c"};
constexpr std::string_view LEXICON_PUNCTUATION[] = {"c"};
constexpr std::string_view SENTENCE_NAMES[] = {"s", "sent", "sentence"};
constexpr double ANY_END_MARKS = 1e18;

bool has(const TokenSources& sources, TokenSource source) { return sources.test(static_cast<std::size_t>(source)); }

std::string name_of(TokenSource source) {
    return std::string(std::ranges::find(TOKEN_SOURCE_NAMES, source, &TokenSourceName::source)->name);
}

/// Whether there is a lemma or tag. A type alone tells nothing: words with the JSON of a lexicon's ids have one, too,
/// and those that the lexicon lacks have nothing else.
bool is_annotated(TokenSources sources) {
    for (const TokenSource source : {TEXT, NORM, FORM, TYPE})
        sources.reset(static_cast<std::size_t>(source));
    return sources.any();
}

/// How many tokens have which sources.
class Tally {
public:
    void add(const std::vector<SurveyResult::Pattern>& patterns, std::optional<bool> with_json) {
        std::ranges::copy_if(patterns, std::back_inserter(m_patterns), [&](const SurveyResult::Pattern& pattern) {
            const bool has_json = has(pattern.sources, LEXICON_JSON);
            return !with_json || (*with_json ? has_json : !has_json && is_annotated(pattern.sources));
        });
    }

    template<typename Condition>
    std::uint64_t count_if(Condition is_wanted) const {
        std::uint64_t count = 0;
        for (const SurveyResult::Pattern& pattern : m_patterns)
            count += is_wanted(pattern.sources) ? pattern.tokens : 0;
        return count;
    }

    std::uint64_t count() const {
        return count_if([](const TokenSources&) { return true; });
    }
    std::uint64_t count(TokenSource source) const {
        return count_if([&](const TokenSources& sources) { return has(sources, source); });
    }
    /// Those for which this is the first source of a list that they have.
    std::uint64_t count_first(std::span<const TokenSource> list, TokenSource source) const {
        return count_if([&](const TokenSources& sources) {
            const auto first = std::ranges::find_if(list, [&](TokenSource one) { return has(sources, one); });
            return first != list.end() && *first == source;
        });
    }
    /// At least a hundredth of all.
    bool has_some(TokenSource source) const { return count(source) > 0 && count(source) * 100 >= count(); }

private:
    std::vector<SurveyResult::Pattern> m_patterns;
};

bool is_default(const std::vector<std::string>& names, std::span<const std::string_view> defaults) {
    return std::ranges::all_of(
        names, [&](const std::string& name) { return std::ranges::find(defaults, name) != defaults.end(); });
}

class Adviser {
public:
    /// About all tokens, or about the punctuation and the words with the JSON of a lexicon's ids, or with other
    /// annotation.
    explicit Adviser(const SurveyResult& result, std::optional<bool> with_json = {})
        : m_result(result), m_with_json(with_json) {}

    SurveyAdvice run();

private:
    void choose_tokens();
    void choose_names();
    void choose_sentence();
    const SurveyResult::EnclosingElement* smallest(double min_share, double max_end_marks) const;
    std::string end_marks() const;
    void choose_values();
    bool choose_pos();
    bool is_varied(TokenSource source) const;

    const SurveyResult& m_result;
    std::optional<bool> m_with_json;
    SurveyAdvice m_advice;
    std::vector<const SurveyResult::TokenElement*> m_elements; ///< that are to be tokens
    Tally m_words, m_tokens;
};

SurveyAdvice Adviser::run() {
    choose_tokens();
    if (m_elements.empty()) {
        m_advice.obstacle = "no element looks like a token";
        return m_advice;
    }
    m_advice.has_lexicon_json = m_tokens.count(LEXICON_JSON) * 2 > m_tokens.count(LEMMA);
    choose_names();
    choose_sentence();
    choose_values();
    if (!m_advice.sentence)
        m_advice.obstacle = "nothing encloses the tokens";
    return m_advice;
}

/// Rare elements of unknown names are no tokens of the corpus.
void Adviser::choose_tokens() {
    for (const SurveyResult::TokenElement& element : m_result.token_elements) {
        if (!element.is_known && element.tokens * 100 < m_result.tokens)
            continue;
        m_elements.push_back(&element);
        m_tokens.add(element.patterns, element.is_punctuation ? std::nullopt : m_with_json);
        if (!element.is_punctuation)
            m_words.add(element.patterns, m_with_json);
    }
    m_advice.tokens = m_tokens.count();
    m_advice.words = m_words.count();
    if (m_words.count() == 0)
        m_elements.clear();
}

void Adviser::choose_names() {
    for (const SurveyResult::TokenElement* element : m_elements)
        (element->is_punctuation ? m_advice.punctuation : m_advice.word).push_back(element->name);
    if (is_default(m_advice.word, DEFAULT_WORD))
        m_advice.word.clear();
    if (is_default(m_advice.punctuation, m_advice.has_lexicon_json
                                             ? std::span<const std::string_view>(LEXICON_PUNCTUATION)
                                             : std::span<const std::string_view>(DEFAULT_PUNCTUATION)))
        m_advice.punctuation.clear();
}

/// The smallest element that encloses this share of the tokens and holds on average at most so many end marks.
const SurveyResult::EnclosingElement* Adviser::smallest(double min_share, double max_end_marks) const {
    const auto is_fit = [&](const SurveyResult::EnclosingElement& element) {
        return element.median >= 3 &&
               static_cast<double>(element.tokens) >= min_share * static_cast<double>(m_result.tokens) &&
               static_cast<double>(element.end_marks) <= max_end_marks * static_cast<double>(element.elements);
    };
    const auto found = std::ranges::find_if(m_result.enclosing, is_fit);
    return found == m_result.enclosing.end() ? nullptr : &*found;
}

/// A sentence by its name, else what holds one sentence or verse, else what holds all and marks that end sentences.
void Adviser::choose_sentence() {
    const auto& enclosing = m_result.enclosing;
    const auto named = std::ranges::find_if(enclosing, [&](const SurveyResult::EnclosingElement& element) {
        return std::ranges::find(SENTENCE_NAMES, element.name) != std::end(SENTENCE_NAMES) &&
               element.tokens * 2 >= m_result.tokens;
    });
    if (named != enclosing.end()) {
        m_advice.sentence = &*named;
        return;
    }
    m_advice.sentence = smallest(0.9, 1.5);
    if (m_advice.sentence)
        return;
    if (!m_advice.has_lexicon_json) // which knows no break
        m_advice.break_marks = end_marks();
    if (!m_advice.break_marks.empty())
        m_advice.sentence = smallest(0.99, ANY_END_MARKS);
    if (!m_advice.sentence)
        m_advice.sentence = smallest(0.5, ANY_END_MARKS);
    if (!m_advice.sentence && !enclosing.empty())
        m_advice.sentence = &*std::ranges::max_element(enclosing, {}, &SurveyResult::EnclosingElement::tokens);
}

/// Those that the documents declare, where they do.
std::string Adviser::end_marks() const {
    const bool are_declared = std::ranges::any_of(m_result.end_marks, &SurveyResult::EndMark::declared);
    std::string marks;
    for (const SurveyResult::EndMark& mark : m_result.end_marks)
        if (!are_declared || mark.declared * 2 > mark.tokens)
            marks += mark.text;
    return marks;
}

void Adviser::choose_values() {
    const bool has_lemma = m_words.has_some(LEMMA) || m_words.has_some(HEAD_WORD);
    if (m_advice.has_lexicon_json) {
        m_advice.columns = "form,lemma,pos";
        return;
    }
    const auto is_without = [](const TokenSources& sources) { return !has(sources, TEXT) && !has(sources, NORM); };
    if (m_tokens.count_if(is_without) > 0)
        m_advice.form = m_tokens.count(NORM) > 0 ? "text,norm,form" : "text,form";
    if (m_words.count(HEAD_WORD) > m_words.count(LEMMA))
        m_advice.lemma = name_of(HEAD_WORD);
    const bool has_pos = choose_pos();
    if (!has_pos && !has_lemma) {
        m_advice.obstacle = "the tokens have no tag and no lemma";
        return;
    }
    const bool is_pos_upos = m_advice.pos == name_of(UPOS) || m_advice.pos == name_of(MSD_UPOS) ||
                             (m_advice.pos.empty() && !m_words.has_some(POS) && !m_words.has_some(ANA));
    const bool has_upos = !is_pos_upos && (m_words.has_some(MSD_UPOS) || m_words.has_some(UPOS));
    if (has_upos && !m_words.has_some(MSD_UPOS))
        m_advice.upos = name_of(UPOS);
    if (!m_words.has_some(MSD_FEATURES) && m_words.has_some(FEATS))
        m_advice.feats = name_of(FEATS);
    m_advice.columns = std::string("form") + (has_lemma ? ",lemma" : "") + (has_pos && has_upos ? ",upos" : "") +
                       (has_pos ? ",pos" : "") +
                       (m_words.has_some(MSD_FEATURES) || !m_advice.feats.empty() ? ",feats" : "");
    if (m_advice.columns == "form,pos")
        m_advice.columns.clear();
}

/// Whether an attribute has more than one value, as tags do.
bool Adviser::is_varied(TokenSource source) const {
    return source == MSD_UPOS || std::ranges::any_of(m_elements, [&](const SurveyResult::TokenElement* element) {
               return std::ranges::any_of(element->attributes, [&](const SurveyResult::Attribute& attribute) {
                   return attribute.name == name_of(source) && attribute.distinct > 1;
               });
           });
}

/// Whether there are tags. They are not to come from two attributes, which rarely have the same ones.
bool Adviser::choose_pos() {
    const auto main = *std::ranges::max_element(
        DEFAULT_POS, {}, [&](TokenSource source) { return m_words.count_first(DEFAULT_POS, source); });
    std::uint64_t served = 0, by_others = 0;
    bool is_pure = true;
    for (const TokenSource source : DEFAULT_POS) {
        const std::uint64_t count = m_tokens.count_first(DEFAULT_POS, source);
        served += count;
        by_others += source == main ? 0 : count;
        is_pure = is_pure && (source == main || count == 0 || is_varied(source));
    }
    const auto* const other =
        std::ranges::max_element(OTHER_POS, {}, [&](TokenSource source) { return m_tokens.count(source); });
    if (const std::uint64_t count = m_tokens.count(*other); count > served + m_tokens.count() / 50) {
        m_advice.pos = name_of(*other);
        m_advice.tags = *other;
        return true;
    }
    const std::uint64_t mains = m_words.count_first(DEFAULT_POS, main);
    const std::uint64_t needed = main == TYPE ? 2 : 10;
    if (mains == 0 || mains * needed < m_words.count() || (main == TYPE && !is_varied(TYPE)))
        return false;
    if (!is_pure || (by_others * 30 > served && (served - by_others) * 2 > served))
        m_advice.pos = name_of(main);
    m_advice.tags = main;
    return true;
}

std::string joined(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names)
        list.append(list.empty() ? "" : ",").append(name);
    return list;
}

} // namespace

std::vector<std::string> SurveyAdvice::options() const {
    std::vector<std::string> options;
    const auto add = [&](const char* name, const std::string& value) {
        if (!value.empty())
            options.push_back(std::string("--") + name + "=" + value);
    };
    add("sentence", sentence && sentence->name != "s" ? sentence->name : "");
    add("word", joined(word));
    add("punctuation", joined(punctuation));
    add("break", break_marks);
    add("form", form);
    add("lemma", lemma);
    add("pos", pos);
    add("upos", upos);
    add("feats", feats);
    add("columns", columns);
    return options;
}

SurveyAdvice advise(const SurveyResult& result) { return Adviser(result).run(); }

std::vector<SurveyAdvice> advise_each(const SurveyResult& result) {
    SurveyAdvice advice = advise(result);
    SurveyAdvice with_json = Adviser(result, true).run(), without = Adviser(result, false).run();
    const std::uint64_t all = with_json.words + without.words;
    if (!with_json.obstacle.empty() || !without.obstacle.empty() ||
        std::min(with_json.words, without.words) * 100 < all)
        return {std::move(advice)};
    if (with_json.words < without.words)
        std::swap(with_json, without);
    return {std::move(with_json), std::move(without)};
}

std::string looked_for() {
    std::string names;
    for (const TokenSourceName& known : TOKEN_SOURCE_NAMES)
        if (known.source >= LEMMA && known.source != MSD_FEATURES && known.source != MSD_PLAIN)
            names.append(names.empty() ? "" : ", ").append(known.name);
    return names;
}

} // namespace zelvor
