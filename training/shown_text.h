#pragma once

#include <climits>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zelvor {

/// Text from outside in one line that no terminal obeys: what is no UTF-8, or would control it or the order of what
/// follows, is "?". At most so many bytes of it, and "...".
std::string shown(std::string_view text, std::size_t max_bytes = 200);

inline std::string shown_path(std::string_view path) { return shown(path, PATH_MAX); }

/// In decimal, a comma behind each thousand: "622,682".
std::string shown_count(std::uint64_t count);

/// A word of a command line, quoted where a shell would not take it as it is. What would control a terminal, or is no
/// UTF-8, is written in octal within $'...', which newer shells know.
std::string shell_word(std::string_view word);

} // namespace zelvor
