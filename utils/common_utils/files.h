#pragma once

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

namespace zelvor {

/// Calls use(line) for every line of a text file, without its line end ("\n"; a "\r" before it stays). False when the
/// file cannot be opened; a directory opens and has no lines.
template<typename Use>
bool for_each_line(const std::string& filename, Use use) {
    std::ifstream file(filename);
    if (!file)
        return false;
    for (std::string line; std::getline(file, line);)
        use(line);
    return true;
}

/// The absolute path without links and ".."; empty when there is nothing of that name.
inline std::string real_path(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr), std::free);
    return resolved ? resolved.get() : "";
}

} // namespace zelvor
