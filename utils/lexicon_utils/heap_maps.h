#pragma once

#include <type_traits>

namespace zelvor {

/// The inner container under `key` of a map to heap containers, made and entered when there is none.
template<typename Map>
typename Map::mapped_type get_or_create(Map& map, const typename Map::key_type& key) {
    typename Map::mapped_type& inner = map[key];
    if (!inner)
        inner = new std::remove_pointer_t<typename Map::mapped_type>;
    return inner;
}

/// Deletes every inner container and clears the map.
template<typename Map>
void free_inner(Map& map) {
    for (auto& [key, inner] : map)
        delete inner;
    map.clear();
}

} // namespace zelvor
