#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace zelvor {

/// What conversion needs of a lexicon: the tag of each word-form id, in 8 bytes an entry beside the distinct tags.
class TagLexicon {
public:
    struct Counts {
        std::size_t lines = 0;
        std::size_t comments = 0;    ///< begin with "//"
        std::size_t short_lines = 0; ///< fewer than 22 fields; kept with what they hold
        std::size_t duplicates = 0;  ///< of an id that an earlier line has
        bool has_mark = false;       ///< it begins with a byte order mark, which is passed over
    };
    using ShortLine = std::function<void(std::size_t number, std::size_t fields)>;

    /// Replaces the content by that of a file of lexicon lines (docs/formats.md); numbers begin at 1. Throws
    /// std::system_error when the file cannot be read, std::invalid_argument, which says why, when it is UTF-16,
    /// compressed or without any entry; the content is then as it was.
    Counts load(const std::string& filename, const ShortLine& on_short_line);

    /// The tag of the first line with this word-form id, or null; valid as long as the content.
    const std::string* find(int id) const;

private:
    struct Entry {
        int id;
        std::uint32_t tag;
    };

    std::vector<Entry> m_entries; ///< ascending ids
    std::deque<std::string> m_tags;
};

} // namespace zelvor
