#include "training/SentenceIds.h"

#include <functional>

namespace zelvor {

namespace {

constexpr std::hash<std::string_view> HASH;

} // namespace

std::string SentenceIds::add(const std::string& id) {
    if (insert(id))
        return id;
    std::size_t& next = m_next.try_emplace(id, 2).first->second;
    while (true)
        if (std::string other = id + '-' + std::to_string(next++); insert(other))
            return other;
}

bool SentenceIds::insert(std::string_view id) {
    if (m_index.find(HASH(id), [&](std::size_t i) { return id_at(i) == id; }) != HashIndex::NONE)
        return false;
    m_text += id;
    m_ends.push_back(m_text.size());
    m_index.add([&](std::size_t i) { return HASH(id_at(i)); });
    return true;
}

std::string_view SentenceIds::id_at(std::size_t i) const {
    const std::size_t begin = i == 0 ? 0 : m_ends[i - 1];
    return std::string_view(m_text).substr(begin, m_ends[i] - begin);
}

} // namespace zelvor
