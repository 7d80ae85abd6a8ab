#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zelvor {

/// Finds the numbers 0, 1, 2, ... of things that are stored elsewhere by the things' hashes: open addressing with four
/// bytes a slot. The hashes should be well mixed in their low bits.
class HashIndex {
public:
    static constexpr std::uint32_t NONE = 0xFFFFFFFF;

    /// The number for which is_equal(number) holds among those of this hash, or NONE.
    template<typename IsEqual>
    std::uint32_t find(std::uint64_t hash, IsEqual is_equal) const {
        if (m_slots.empty())
            return NONE;
        std::size_t slot = hash & (m_slots.size() - 1);
        while (m_slots[slot] != NONE && !is_equal(m_slots[slot]))
            slot = (slot + 1) & (m_slots.size() - 1);
        return m_slots[slot];
    }

    /// Enters the next number and returns it; hash_of(number) gives the hash of every number so far and of this one.
    template<typename HashOf>
    std::uint32_t add(HashOf hash_of) {
        const std::uint32_t number = m_size++;
        if (std::size_t{m_size} * 4 <= m_slots.size() * 3) {
            place(number, hash_of(number));
            return number;
        }
        m_slots.assign(next_slots(), NONE);
        for (std::uint32_t known = 0; known <= number; ++known)
            place(known, hash_of(known));
        return number;
    }

    /// Forgets all numbers, and keeps the room for them.
    void clear() {
        std::ranges::fill(m_slots, NONE);
        m_size = 0;
    }

    std::size_t bytes() const { return m_slots.size() * sizeof(std::uint32_t); }
    /// What add() would allocate for the next number, beside what it gives back then.
    std::size_t growth() const {
        return (std::size_t{m_size} + 1) * 4 <= m_slots.size() * 3 ? 0 : next_slots() * sizeof(std::uint32_t);
    }

private:
    std::size_t next_slots() const { return m_slots.empty() ? 16 : m_slots.size() * 2; }

    void place(std::uint32_t number, std::uint64_t hash) {
        std::size_t slot = hash & (m_slots.size() - 1);
        while (m_slots[slot] != NONE)
            slot = (slot + 1) & (m_slots.size() - 1);
        m_slots[slot] = number;
    }

    std::vector<std::uint32_t> m_slots;
    std::uint32_t m_size = 0;
};

} // namespace zelvor
