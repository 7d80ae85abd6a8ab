#pragma once

#include "utils/common_utils/hash_index.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// Counts texts of several kinds in bounded memory, after J. Misra and D. Gries, Finding repeated elements (1982), with
/// many counters lowered at once: where there is no room for another text, the kind with the most texts loses those
/// that came least, and the counts of its others are lowered by as much. So every count is too low by at most the
/// error of its kind, and a text that came more often than that is among them.
class FrequentTexts {
public:
    static constexpr std::uint32_t NONE = HashIndex::NONE;
    static constexpr std::size_t KINDS = 32;
    static constexpr std::size_t MAX_TEXT = 100; ///< in bytes; texts count by their beginning

    /// Where a text came first.
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
        std::string_view text;
        std::uint64_t count;
        Place place;
    };

    explicit FrequentTexts(Room room) : m_room(room) {}

    /// The number of a text, or NONE.
    std::uint32_t find(std::uint8_t kind, std::string_view text) const;
    bool has_room(std::string_view text, std::string_view file) const;
    /// Enters a text that is not there, as the next number and with the count 0; there must be room for it.
    std::uint32_t enter(std::uint8_t kind, std::string_view text, const Place& place);
    void raise(std::uint32_t number, std::uint64_t count) { m_entries[number].count += count; }

    std::uint32_t size() const { return static_cast<std::uint32_t>(m_entries.size()); }
    const Room& room() const { return m_room; }
    std::size_t bytes() const; ///< that it takes, about

    /// Adds all that another one has counted, in its order, as of this document; makes room where there is none.
    void add(const FrequentTexts& other, std::uint32_t document);

    /// All of a kind, the most frequent first, of equal ones that which came first. The views are valid as long as
    /// nothing is added.
    std::vector<Text> sorted(std::uint8_t kind) const;
    std::uint64_t error(std::uint8_t kind) const { return m_errors[kind]; }

private:
    struct Entry {
        std::uint64_t hash, count;
        std::uint32_t begin; ///< of the text in m_bytes, the file behind it
        std::uint32_t document, line;
        std::uint16_t file_length;
        std::uint8_t length, kind;
    };

    std::uint32_t find(std::uint64_t hash, std::uint8_t kind, std::string_view text) const;
    std::uint32_t enter(std::uint64_t hash, std::uint8_t kind, std::string_view text, const Place& place);
    void reserve(std::size_t bytes);
    void make_room();
    void drop(std::uint8_t kind, std::uint64_t cut);
    std::string_view text_of(const Entry& entry) const { return {m_bytes.data() + entry.begin, entry.length}; }
    std::string_view file_of(const Entry& entry) const { return {text_of(entry).end(), entry.file_length}; }

    Room m_room;
    std::vector<Entry> m_entries;
    std::string m_bytes;
    HashIndex m_index;
    std::array<std::uint64_t, KINDS> m_errors{};
};

} // namespace zelvor
