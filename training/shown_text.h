#pragma once

#include <climits>
#include <cstddef>
#include <string>
#include <string_view>

namespace zelvor {

/// Text from outside in one line that no terminal obeys: what is no UTF-8 or would control it is "?". At most so many
/// bytes of it, and "...".
std::string shown(std::string_view text, std::size_t max_bytes = 200);

inline std::string shown_path(std::string_view path) { return shown(path, PATH_MAX); }

} // namespace zelvor
