#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

inline bool is_tei_name(std::string_view path) { return path.ends_with(".tei") || path.ends_with(".xml"); }

struct TeiInputs {
    std::vector<std::string> documents;
    std::size_t passed_over = 0; ///< files below folders, for their names
};

/// " (N passed over by name)", where there are some.
std::string told_passed_over(std::size_t files);

/// The documents that inputs stand for, in ascending order of their paths as bytes, each once. A folder stands for the
/// regular files at any depth below it, or links to such, whose names are TEI names; hidden files and folders count
/// only where they are wanted, and links to folders are not followed. Anything else stands for itself: "-", a file of
/// any name, a pipe, a path that does not exist. `fault` is told of each folder that cannot be read,
/// with the number of the error.
TeiInputs find_documents(const std::vector<std::string>& inputs, bool with_hidden,
                         const std::function<void(const std::string& folder, int error)>& fault);

} // namespace zelvor
