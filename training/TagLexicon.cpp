#include "training/TagLexicon.h"

#include "training/tags.h"
#include "utils/common_utils/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <unordered_map>

namespace zelvor {

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
constexpr std::size_t LEMMA_POS = 6, WORD_FORM_ID = 7, POS = 17, REQUIRED = 22;

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

    std::array<std::string_view, REQUIRED> text;
    std::size_t count = 0;
};

/// Each distinct tag once.
class TagPool {
public:
    std::uint32_t index(const std::string& tag) {
        const auto [place, is_new] = m_indices.emplace(tag, static_cast<std::uint32_t>(tags.size()));
        if (is_new)
            tags.push_back(tag);
        return place->second;
    }

    std::deque<std::string> tags;

private:
    std::unordered_map<std::string, std::uint32_t> m_indices;
};

/// Why a file that begins like this is no lexicon, or nothing.
const char* why_no_lexicon(std::string_view begin) {
    if (begin.starts_with("\x1F\x8B"))
        return "is compressed; unpack it, as in -l <(zcat FILE)";
    if (begin.starts_with("\xFF\xFE") || begin.starts_with("\xFE\xFF") || begin.substr(0, 2).find('\0') < 2)
        return "is UTF-16; make it UTF-8, as iconv -f UTF-16 -t UTF-8 does";
    return nullptr;
}

[[noreturn]] void throw_error(const std::string& filename) {
    throw std::system_error(errno ? errno : EIO, std::generic_category(), filename);
}

} // namespace

TagLexicon::Counts TagLexicon::load(const std::string& filename, const ShortLine& on_short_line) {
    Counts counts;
    TagPool pool;
    std::vector<Entry> entries;
    errno = 0;
    std::ifstream file(filename);
    if (!file)
        throw_error(filename);
    for (std::string line; std::getline(file, line);) {
        if (++counts.lines == 1) {
            if (const char* const reason = why_no_lexicon(line))
                throw std::invalid_argument("the lexicon " + filename + " " + reason);
            counts.has_mark = line.starts_with(BYTE_ORDER_MARK);
            line.erase(0, counts.has_mark ? BYTE_ORDER_MARK.size() : 0);
        }
        if (line.starts_with("//")) {
            ++counts.comments;
            continue;
        }
        const Fields fields(line);
        if (fields.count < REQUIRED) {
            ++counts.short_lines;
            on_short_line(counts.lines, fields.count);
        }
        const int id = std::atoi(fields[WORD_FORM_ID].c_str());
        entries.push_back({id, pool.index(word_tag(fields[POS], fields[LEMMA_POS]))});
    }
    if (file.bad())
        throw_error(filename);
    if (entries.empty())
        throw std::invalid_argument("the lexicon has no entry: " + filename);
    if (!std::ranges::is_sorted(entries, {}, &Entry::id))
        std::ranges::stable_sort(entries, {}, &Entry::id);
    const auto rest = std::unique(entries.begin(), entries.end(), [](Entry a, Entry b) { return a.id == b.id; });
    counts.duplicates = static_cast<std::size_t>(entries.end() - rest);
    entries.erase(rest, entries.end());
    m_entries = std::move(entries);
    m_tags = std::move(pool.tags);
    return counts;
}

const std::string* TagLexicon::find(int id) const {
    if (m_entries.empty() || id < m_entries.front().id)
        return nullptr;
    // Where ids have no gaps, this is the place; it never lies before it.
    const auto farthest = std::min<std::uint64_t>(static_cast<std::uint64_t>(std::int64_t{id} - m_entries.front().id),
                                                  m_entries.size() - 1);
    const auto guess = m_entries.begin() + static_cast<std::ptrdiff_t>(farthest);
    const auto found = guess->id <= id ? guess : std::ranges::lower_bound(m_entries.begin(), guess, id, {}, &Entry::id);
    return found->id != id ? nullptr : &m_tags[found->tag];
}

} // namespace zelvor
