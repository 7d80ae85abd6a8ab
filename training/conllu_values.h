#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What the comments and columns of CoNLL-U can hold, https://universaldependencies.org/format.html.
namespace zelvor {

struct ConlluCharacter {
    std::size_t length; ///< in bytes
    bool fits;          ///< into a column
};

/// The character at `position`. Columns cannot hold control characters, what is no UTF-8, and white space, but where
/// that is allowed a single one between other characters.
ConlluCharacter conllu_character(std::string_view text, std::size_t position, bool with_white_space);

/// The text without no-break and other wide spaces at its ends, each run with such in it made one blank. `place` is
/// where it is made, if need be.
std::string_view without_wide_runs(std::string_view text, std::string& place);

/// Ids and paths as comments can hold them, in Unicode's normal form C: "_" for white space in an id, for the end of a
/// line and what is no UTF-8 in a path.
std::string comment_id(std::string_view id);
std::string comment_path(std::string_view path);

/// Of features as in "Case=Gen|Number=Sing", those that fit, in the order of their names without regard to case, and
/// the rest: other text, and what comes after the first of a name. "_" has none,
/// and of a list beyond MAX_TOKEN_TEXT all is the rest.
void sort_features(std::string_view list, std::vector<std::string_view>& fit, std::vector<std::string_view>& rest);

} // namespace zelvor
