#pragma once

#include "utils/common_utils/hash_index.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace zelvor {

/// Counts texts of several kinds in bounded memory, after J. Misra and D. Gries, Finding repeated elements (1982), with
/// many counters lowered at once: where there is no room for another text, the kind with the most texts loses those
/// that came least, and the counts of its others are lowered by as much. So every count is too low by at most the
/// error of its kind, and a text that came more often than that is among them. Texts are told apart by all of their
/// bytes, those of more than 16 by their length and 128 bits of a hash.
class FrequentTexts {
public:
    static constexpr std::uint32_t NONE = HashIndex::NONE;
    static constexpr std::size_t KINDS = 32;
    static constexpr std::size_t MAX_SHOWN = 100; ///< in bytes; of a text no more is kept, in whole characters
    static constexpr std::size_t MAX_FILE = 4096; ///< in bytes; a longer name is not kept

    /// Where a text came first, or where it came first after it had to go.
    struct Place {
        std::uint32_t document = 0;
        std::uint32_t line = 0;
        std::string_view file; ///< within the document, where it is another
    };
    /// Of so many texts, with so many bytes of them and of files.
    struct Room {
        std::uint32_t texts;
        std::uint32_t bytes;
    };
    struct Text {
        std::string_view beginning;
        std::uint64_t bytes; ///< of all of the text
        std::uint64_t count;
        Place place;
    };

    explicit FrequentTexts(Room room);

    /// The number of a text, or NONE.
    std::uint32_t find(std::uint8_t kind, std::string_view text) const;
    /// Whether there may be no room for another text.
    bool is_full() const { return !has_room(MAX_SHOWN + MAX_FILE); }
    /// Enters a text that is not there, as the next number and with the count 0; there must be room for it.
    std::uint32_t enter(std::uint8_t kind, std::string_view text, const Place& place);
    /// Raises the count of a text, if it is there.
    bool raise_known(std::uint8_t kind, std::string_view text, std::int64_t count);
    /// The count may be lowered, too, down to 0; the text stays.
    void raise(std::uint32_t number, std::int64_t count) {
        m_entries[number].count += static_cast<std::uint64_t>(count);
    }

    /// So many texts of a kind have come that nobody can name: its counts may be too low by as much.
    void miss(std::uint8_t kind, std::uint64_t times) { m_errors[kind] += times; }

    std::size_t bytes() const; ///< that are allocated
    /// What enter() would allocate, beside what it gives back then.
    std::size_t growth(std::string_view text, std::string_view file) const;

    /// Adds all that another one has counted, in its order, as of this document; makes room where there is none.
    void add(const FrequentTexts& other, std::uint32_t document);

    /// The most frequent texts of a kind, so many at most, of equal ones that which came first. The views are valid as
    /// long as nothing is added.
    std::vector<Text> most_frequent(std::uint8_t kind, std::size_t most = NONE) const;
    /// How many texts of a kind came, or at least how many; `rarer` than so many times.
    std::uint64_t distinct(std::uint8_t kind) const;
    std::uint64_t rarer(std::uint8_t kind, std::uint64_t limit) const;
    std::uint64_t error(std::uint8_t kind) const { return m_errors[kind]; }

private:
    /// What tells a text from others.
    struct Key {
        std::uint64_t first, last; ///< bytes, or both halves of the hash
        std::uint32_t length_and_kind;
    };
    /// Begins with its key, without what would be left free behind it.
    struct Entry {
        std::uint64_t first, last;
        std::uint32_t length_and_kind;
        std::uint32_t begin; ///< in m_bytes, of what is kept of the text, the file behind it
        std::uint64_t count;
        std::uint32_t document, line;
        std::uint16_t file_length;
        std::uint8_t shown_length;

        Key key() const { return {first, last, length_and_kind}; }
        std::uint32_t length() const { return length_and_kind / KINDS; }
        std::uint32_t kind() const { return length_and_kind % KINDS; }
    };

    static Key key_of(std::uint8_t kind, std::string_view text);
    static Key long_key(std::uint32_t length_and_kind, std::string_view text);
    std::uint64_t hash_of(const Key& key) const;

    std::uint32_t find(const Key& key) const;
    std::uint32_t enter(const Key& key, std::string_view shown, const Place& place);
    bool has_room(std::size_t bytes) const {
        return m_entries.size() < m_room.texts && m_bytes.size() + bytes <= m_room.bytes;
    }
    std::size_t next_entries() const;
    std::size_t next_bytes(std::size_t bytes) const;
    std::uint32_t add_to_index();
    void make_room();
    std::uint64_t middle_count(std::uint8_t kind, std::size_t texts) const;
    void drop(std::uint8_t kind, std::uint64_t cut);
    std::string_view text_of(const Entry& entry) const { return {m_bytes.data() + entry.begin, entry.shown_length}; }
    std::string_view file_of(const Entry& entry) const { return {text_of(entry).end(), entry.file_length}; }

    /// Of the process: nobody can write texts for it that end up in one place.
    struct Seed {
        std::uint64_t first, last;
    };
    static Seed make_seed();

    Room m_room;
    Seed m_seed;
    std::vector<Entry> m_entries;
    std::vector<char> m_bytes;
    HashIndex m_index;
    std::array<std::uint64_t, KINDS> m_errors{};
    std::array<std::uint64_t, KINDS> m_dropped_from{}; ///< the most texts that there were when some had to go
};

} // namespace zelvor
