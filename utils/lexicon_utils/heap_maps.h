#pragma once

#include <memory>
#include <type_traits>

namespace zelvor {

/// The inner container under `key` of a map to heap containers, made and entered when the key is new; null where the
/// map holds null.
template<typename Map>
typename Map::mapped_type find_or_create(Map& map, const typename Map::key_type& key) {
    const auto known = map.find(key);
    if (known != map.end())
        return known->second;
    auto inner = std::make_unique<std::remove_pointer_t<typename Map::mapped_type>>();
    map.emplace(key, inner.get());
    return inner.release();
}

/// Deletes every inner container and clears the map.
template<typename Map>
void free_inner(Map& map) {
    for (auto& [key, inner] : map)
        delete inner;
    map.clear();
}

} // namespace zelvor
