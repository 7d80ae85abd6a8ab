#pragma once

#include "training/ConversionReport.h"
#include "training/universal_features.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace zelvor {

/// What a lexicon says of a word form; the strings are shared with other analyses.
struct LexiconAnalysis {
    const std::string *pos, *upos, *feats;
    std::array<const std::string*, NUM_CATEGORIES> categories; ///< by Category, as docs/formats.md has their values
};

/// What conversion needs of a lexicon: the analysis of each word-form id, in 8 bytes an entry beside the distinct ones.
class TagLexicon {
public:
    struct Counts {
        std::size_t lines = 0;
        std::size_t comments = 0;    ///< begin with "//"
        std::size_t short_lines = 0; ///< fewer than 22 fields; kept with what they hold
        std::size_t duplicates = 0;  ///< of an id that an earlier line has
        bool has_mark = false;       ///< it begins with a byte order mark, which is passed over

        void report(ConversionReport& report) const;
    };
    TagLexicon() = default;
    TagLexicon(TagLexicon&&) = default; ///< not copied: analyses point to strings
    TagLexicon& operator=(TagLexicon&&) = default;

    using ShortLine = std::function<void(std::size_t number, std::size_t fields)>;

    /// Replaces the content by that of a file of lexicon lines (docs/formats.md); numbers begin at 1. With `nfc`,
    /// values are brought into Unicode's normal form C. Throws std::system_error when the file cannot be read,
    /// std::invalid_argument, which says why, when it is UTF-16, compressed or without any entry; the content is then
    /// as it was.
    Counts load(const std::string& filename, bool nfc, const ShortLine& on_short_line);

    /// The analysis in the first line with this word-form id, or null; valid as long as the content.
    const LexiconAnalysis* find(int id) const;

private:
    struct Entry {
        int id;
        std::uint32_t analysis;
    };

    std::vector<Entry> m_entries; ///< ascending ids
    std::vector<LexiconAnalysis> m_analyses;
    std::set<std::string, std::less<>> m_strings; ///< of the analyses
};

} // namespace zelvor
