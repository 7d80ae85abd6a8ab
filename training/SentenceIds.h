#pragma once

#include "utils/common_utils/hash_index.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zelvor {

/// The ids of a document's sentences, each once, in few bytes beside their text.
class SentenceIds {
public:
    /// The id itself or, where it is there already, the first free one of those with "-2", "-3" and so on behind it.
    std::string add(const std::string& id);

private:
    bool insert(std::string_view id); ///< false where it is there
    std::string_view id_at(std::size_t i) const;

    std::string m_text;              ///< all of them
    std::vector<std::size_t> m_ends; ///< of each of them
    HashIndex m_index;
    std::unordered_map<std::string, std::size_t> m_next; ///< number behind an id that came again
};

} // namespace zelvor
