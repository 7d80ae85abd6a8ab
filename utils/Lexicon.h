#pragma once

#include "utils/LexicalEntry.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace zelvor {

/// A lexicon that owns its Latin entries, the first added first. Adding folds as LexicalEntry::merge does with all
/// entries in one map, but in a time that does not grow with the entries of the lemma. Entries never leave and keep
/// their address; they change only by what is folded into them. What is const may be called by several threads at once.
class Lexicon {
public:
    using Entries = std::vector<const LexicalEntry*>; ///< of the lexicon, valid as long as it is
    /// What is told of a line that is left out: its number, from 1, and what is wrong with it.
    using BadLine = std::function<void(std::size_t number, const std::string& reason)>;

    /// Appends an entry for each line of a file of lexicon lines (docs/formats.md), folding none of them; comments,
    /// blank lines and a byte order mark are passed over. Returns the number of entries. Throws std::system_error when
    /// the file cannot be read, and std::invalid_argument, which names file and line, for a line of fewer than 22
    /// fields or not in UTF-8, unless on_bad_line is there to be told of it; for a file that is UTF-16 or compressed in
    /// any case. The lexicon is then as it was, as it is until on_bad_line has been told of the last line: what that
    /// throws passes through. std::bad_alloc leaves the entries that were added before it, each of which is found.
    std::size_t read(const std::string& filename, const BadLine& on_bad_line = {});

    /// As read(), but each entry is added, `source` (unless empty) among the sources of its form, lemma and tag.
    /// Returns how many were new. A source with "#", ",", NUL or a line end, with blanks at its ends, or not in UTF-8,
    /// throws std::invalid_argument.
    std::size_t merge(const std::string& filename, const std::string& source, bool extended_comparison = true,
                      const BadLine& on_bad_line = {});

    /// What read() and merge() add, in their order: calls use(entry) for each, when on_bad_line has been told of the
    /// last bad line. Returns the number of entries; throws as these do.
    static std::size_t for_each_entry(const std::string& filename, const std::string& source,
                                      const BadLine& on_bad_line,
                                      const std::function<void(std::unique_ptr<LexicalEntry> entry)>& use);

    /// Adds an entry, unless it is null, and folds nothing. std::bad_alloc leaves the lexicon as it was.
    void append(std::unique_ptr<LexicalEntry> entry);

    /// True when the entry was new, false when it was folded into another and freed (or was null). std::bad_alloc
    /// leaves no new entry; one that is folded may be so in part.
    bool add(std::unique_ptr<LexicalEntry> entry, bool extended_comparison);

    const Entries& entries() const { return m_entries; }
    std::size_t size() const { return m_entries.size(); }

    /// The word-form id of an entry; none where it has none, or one that is no int.
    static std::optional<int> id_of(const LexicalEntry& entry);

    /// The first entry that had this word-form id, or null. Entries without an id are not found, not even by 0.
    const LexicalEntry* find_id(int word_form_id) const;
    Entries find_lemma(const std::string& lemma) const; ///< in the order added
    Entries find_form(const std::string& form) const;   ///< by the word form spelled out, in the order added

    /// Writes a line for each entry. The file is there when it is complete, and not before; empty or "-" is standard
    /// output. Throws std::system_error when it cannot be written, and std::invalid_argument for an entry that could
    /// not be read back, since a value holds "#" or a line end or is not UTF-8, or its line begins with "//".
    void write(const std::string& filename) const;

private:
    /// Numbers of entries by the hash of something they have, those of one hash in the order entered.
    class Index {
    public:
        struct Chain {
            std::uint32_t first, last;
        };

        /// The place of an entry that may be entered then; all that needs memory.
        Chain& make_room(std::size_t hash, std::uint32_t entry);
        void enter(Chain& chain, std::uint32_t entry) noexcept;
        /// Calls use(entry) until it returns true.
        template<typename Use>
        void visit(std::size_t hash, Use use) const;

    private:
        std::unordered_map<std::size_t, Chain> m_chains;
        std::vector<std::uint32_t> m_next; ///< by entry
    };

    Index::Chain* room_for_id(const LexicalEntry& entry, std::uint32_t number);
    template<typename IsMeant>
    Entries select(const Index& index, const std::string& text, IsMeant is_meant) const;

    std::vector<std::unique_ptr<LexicalEntry>> m_owned;
    Entries m_entries; ///< the same
    Index m_by_analysis, m_by_lemma, m_by_form, m_by_id;
};

} // namespace zelvor
