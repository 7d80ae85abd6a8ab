#include "training/TagLexicon.h"

#include "training/normal_form.h"
#include "training/tags.h"
#include "utils/common_utils/encoding.h"
#include "utils/common_utils/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace zelvor {

namespace {

constexpr std::size_t LEMMA_POS = 6, WORD_FORM_ID = 7, POS = 17, REQUIRED = 22;
constexpr std::size_t CATEGORIES[] = {9, 10, 13, 14, 15, 16, 18, 19, 20, 21}; // by Category
constexpr std::size_t MAX_REMEMBERED = 65536;

/// The first fields of a line, untrimmed; those that are missing stay empty.
struct Fields {
    explicit Fields(std::string_view line) {
        for (std::size_t begin = 0; count < REQUIRED;) {
            const std::size_t end = line.find('#', begin);
            text[count++] = line.substr(begin, end - begin);
            if (end == std::string_view::npos)
                return;
            begin = std::min(line.find_first_not_of('#', end), line.size());
        }
    }

    std::string operator[](std::size_t i) const { return std::string(trimmed(text[i])); }

    /// All that an analysis is made of, and what stands between.
    std::string_view analysis() const {
        const char* const begin = text[CATEGORIES[0]].data();
        const std::string_view last = text[count - 1];
        return begin ? std::string_view(begin, static_cast<std::size_t>(last.data() + last.size() - begin)) : "";
    }

    std::array<std::string_view, REQUIRED> text;
    std::size_t count = 0;
};

/// Persons by one name each, as docs/formats.md has it.
std::string person(std::string value) {
    constexpr std::string_view names[][2] = {
        {"FIRST_PERSON", "PERSON_1"}, {"SECOND_PERSON", "PERSON_2"}, {"THIRD_PERSON", "PERSON_3"}};
    for (const auto& [name, other] : names)
        if (value == name)
            return std::string(other);
    return value;
}

/// Each distinct analysis once.
class AnalysisPool {
public:
    explicit AnalysisPool(bool nfc) : m_nfc(nfc) {}

    std::uint32_t index(const Fields& fields) {
        (m_key = fields.text[LEMMA_POS]) += '#';
        m_key += fields.analysis();
        if (const auto known = m_remembered.find(m_key); known != m_remembered.end())
            return known->second;
        if (m_remembered.size() == MAX_REMEMBERED)
            m_remembered.clear();
        return m_remembered.emplace(m_key, add(fields)).first->second;
    }

    std::vector<LexiconAnalysis> analyses;
    std::set<std::string, std::less<>> strings;

private:
    using Key = std::array<const std::string*, NUM_CATEGORIES + 1>;

    std::uint32_t add(const Fields& fields);

    const std::string* shared(std::string text) {
        if (m_nfc)
            to_normal_form(text);
        return &*strings.insert(std::move(text)).first;
    }

    bool m_nfc;
    std::map<Key, std::uint32_t> m_indices;                      ///< by tag and categories
    std::unordered_map<std::string, std::uint32_t> m_remembered; ///< by text of lines
    std::string m_key;
};

std::uint32_t AnalysisPool::add(const Fields& fields) {
    std::array<std::string, NUM_CATEGORIES> categories;
    std::ranges::transform(CATEGORIES, categories.begin(), [&](std::size_t i) { return fields[i]; });
    std::string& of_person = categories[static_cast<std::size_t>(Category::PERSON)];
    of_person = person(of_person);
    Key key;
    std::ranges::transform(categories, key.begin(), [&](const std::string& value) { return shared(value); });
    const std::string* const tag = key.back() = shared(word_tag(fields[POS], fields[LEMMA_POS]));
    const auto [place, is_new] = m_indices.emplace(key, static_cast<std::uint32_t>(analyses.size()));
    if (is_new) {
        LexiconAnalysis analysis{
            tag, shared(std::string(universal_tag(*tag))), shared(universal_features(categories)), {}};
        std::copy_n(key.begin(), NUM_CATEGORIES, analysis.categories.begin());
        analyses.push_back(analysis);
    }
    return place->second;
}

[[noreturn]] void throw_error(const std::string& filename) {
    throw std::system_error(errno ? errno : EIO, std::generic_category(), filename);
}

} // namespace

void TagLexicon::Counts::report(ConversionReport& report) const {
    report[ConversionReport::LEXICON_LINES] = lines;
    report[ConversionReport::LEXICON_COMMENTS] = comments;
    report[ConversionReport::LEXICON_SHORT] = short_lines;
    report[ConversionReport::LEXICON_DUPLICATES] = duplicates;
}

TagLexicon::Counts TagLexicon::load(const std::string& filename, bool nfc, const ShortLine& on_short_line) {
    Counts counts;
    AnalysisPool pool(nfc);
    std::vector<Entry> entries;
    bool has_text = false;
    errno = 0;
    std::ifstream file(filename);
    if (!file)
        throw_error(filename);
    for (std::string line; std::getline(file, line);) {
        if (++counts.lines == 1) {
            if (const char* const reason = why_not_utf8_text(line))
                throw std::invalid_argument("the lexicon " + filename + " " + reason);
            counts.has_mark = line.starts_with(BYTE_ORDER_MARK);
            line.erase(0, counts.has_mark ? BYTE_ORDER_MARK.size() : 0);
        }
        if (line.starts_with("//")) {
            ++counts.comments;
            continue;
        }
        has_text = has_text || !trimmed(line).empty();
        const Fields fields(line);
        if (fields.count < REQUIRED) {
            ++counts.short_lines;
            on_short_line(counts.lines, fields.count);
        }
        const int id = std::atoi(fields[WORD_FORM_ID].c_str());
        entries.push_back({id, pool.index(fields)});
    }
    if (file.bad())
        throw_error(filename);
    if (!has_text)
        throw std::invalid_argument("the lexicon has no entry: " + filename);
    if (!std::ranges::is_sorted(entries, {}, &Entry::id))
        std::ranges::stable_sort(entries, {}, &Entry::id);
    const auto rest = std::unique(entries.begin(), entries.end(), [](Entry a, Entry b) { return a.id == b.id; });
    counts.duplicates = static_cast<std::size_t>(entries.end() - rest);
    entries.erase(rest, entries.end());
    m_entries = std::move(entries);
    m_analyses = std::move(pool.analyses);
    m_strings = std::move(pool.strings); // in their places
    return counts;
}

const LexiconAnalysis* TagLexicon::find(int id) const {
    if (m_entries.empty() || id < m_entries.front().id)
        return nullptr;
    // Where ids have no gaps, this is the place; it never lies before it.
    const auto farthest = std::min<std::uint64_t>(static_cast<std::uint64_t>(std::int64_t{id} - m_entries.front().id),
                                                  m_entries.size() - 1);
    const auto guess = m_entries.begin() + static_cast<std::ptrdiff_t>(farthest);
    const auto found = guess->id <= id ? guess : std::ranges::lower_bound(m_entries.begin(), guess, id, {}, &Entry::id);
    return found->id != id ? nullptr : &m_analyses[found->analysis];
}

} // namespace zelvor
