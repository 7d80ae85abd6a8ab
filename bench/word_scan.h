#pragma once

#include "utils/common_utils/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Two other ways to the words within some insertions, deletions and substitutions of a query, for the benchmark.

/// A query, cut to 64 letters, that is compared with words by the bits of a machine word: a column of the matrix of
/// edit distances at a time (Myers 1999).
class Query {
public:
    explicit Query(const std::string& query) : m_text(zelvor::decode_utf8(query)) {
        if (m_text.size() > 64)
            m_text.resize(64);
        for (std::size_t i = 0; i < m_text.size(); ++i)
            m_places[m_text[i] % m_places.size()] |= std::uint64_t{1} << i;
    }
    const std::u32string& text() const { return m_text; }

    bool is_near(std::u32string_view word, int distance) const {
        int current = static_cast<int>(m_text.size()), left = static_cast<int>(word.size());
        if (m_text.empty() || std::abs(current - left) > distance)
            return left <= distance && m_text.empty();
        const std::uint64_t last = std::uint64_t{1} << (m_text.size() - 1);
        std::uint64_t down = ~std::uint64_t{0}, up = 0; // where the distance grows and shrinks by 1 to the row below
        for (const char32_t c : word) {
            const std::uint64_t equal = m_places[c % m_places.size()];
            const std::uint64_t diagonal = (((equal & down) + down) ^ down) | equal;
            std::uint64_t grows = up | ~(diagonal | down), shrinks = down & diagonal;
            current += (grows & last) != 0;
            current -= (shrinks & last) != 0;
            if (current - --left > distance)
                return false;
            grows = grows << 1 | 1;
            shrinks <<= 1;
            down = shrinks | ~(equal | up | grows);
            up = grows & (equal | up);
        }
        return true;
    }

private:
    std::u32string m_text;
    std::array<std::uint64_t, 1024> m_places{}; ///< of each letter in the text; of rare scripts, several share one
};

/// Words behind each other, and the comparison of a query with every one of about its length.
class WordScan {
public:
    explicit WordScan(const std::vector<std::string>& words) : m_starts{0} {
        for (const std::string& word : words) {
            m_letters += zelvor::decode_utf8(word);
            m_starts.push_back(m_letters.size());
        }
    }
    std::size_t size() const { return m_starts.size() - 1; }
    std::u32string_view operator[](std::size_t id) const {
        return std::u32string_view(m_letters).substr(m_starts[id], m_starts[id + 1] - m_starts[id]);
    }

    /// How many words lie within the distance.
    std::size_t count(const std::string& query, int distance) const {
        const Query wanted(query);
        std::size_t found = 0;
        for (std::size_t id = 0; id < size(); ++id)
            found += wanted.is_near((*this)[id], distance);
        return found;
    }

private:
    std::u32string m_letters;
    std::vector<std::size_t> m_starts;
};

/// Files each word under all that is left of its first letters when some are deleted: two words within a distance have
/// one of these in common. What shares one with the query is compared with it. Made for one distance.
class DeletionIndex {
public:
    DeletionIndex(const WordScan& words, int distance)
        : m_words(words), m_distance(distance), m_starts(BUCKETS + 1), m_seen_by(words.size()) {
        for (int pass = 0; pass < 2; ++pass) { // counts, then files behind each other
            for (std::uint32_t id = 0; id < words.size(); ++id)
                for (const std::uint32_t bucket : buckets_of(words[id]))
                    if (pass == 0)
                        ++m_starts[bucket];
                    else
                        m_ids[--m_starts[bucket]] = id;
            if (pass == 0) {
                for (std::size_t i = 1; i <= BUCKETS; ++i)
                    m_starts[i] += m_starts[i - 1];
                m_ids.resize(m_starts[BUCKETS]);
            }
        }
    }

    std::size_t count(const std::string& query) {
        const Query wanted(query);
        std::size_t found = 0;
        ++m_query;
        for (const std::uint32_t bucket : buckets_of(wanted.text()))
            for (std::uint32_t i = m_starts[bucket]; i < m_starts[bucket + 1]; ++i)
                if (const std::uint32_t id = m_ids[i]; std::exchange(m_seen_by[id], m_query) != m_query)
                    found += wanted.is_near(m_words[id], m_distance);
        return found;
    }

    /// Without the words themselves.
    std::size_t bytes() const { return 4 * (m_starts.size() + m_ids.size() + m_seen_by.size()); }

private:
    static constexpr std::size_t PREFIX = 7, BUCKETS = 1 << 22;

    const std::vector<std::uint32_t>& buckets_of(std::u32string_view word) {
        m_buckets.clear();
        add_deletions(std::u32string(word.substr(0, PREFIX)), 0, m_distance);
        std::ranges::sort(m_buckets);
        m_buckets.erase(std::unique(m_buckets.begin(), m_buckets.end()), m_buckets.end());
        return m_buckets;
    }

    void add_deletions(const std::u32string& text, std::size_t from, int deletions) {
        std::uint64_t hash = 14695981039346656037U;
        for (const char32_t c : text)
            hash = (hash ^ c) * 1099511628211U;
        m_buckets.push_back(static_cast<std::uint32_t>(hash >> 20) % BUCKETS);
        for (std::size_t i = from; deletions > 0 && i < text.size(); ++i)
            add_deletions(std::u32string(text).erase(i, 1), i, deletions - 1);
    }

    const WordScan& m_words;
    int m_distance;
    std::vector<std::uint32_t> m_starts, m_ids, m_seen_by;
    std::vector<std::uint32_t> m_buckets; ///< of the word at hand
    std::uint32_t m_query = 0;
};
