#pragma once

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <system_error>
#include <utility>

#include <dirent.h>
#include <sys/stat.h>

namespace zelvor {

/// Calls use(line) for every line of a text, without its line end ("\n"; a "\r" before it stays).
template<typename Use>
void for_each_line(std::istream& text, Use use) {
    for (std::string line; std::getline(text, line);)
        use(line);
}

/// The same for a file. False when it cannot be opened; a directory opens and has no lines.
template<typename Use>
bool for_each_line(const std::string& filename, Use use) {
    std::ifstream file(filename);
    for_each_line(file, use);
    return file.is_open();
}

/// The whole of a file. Throws std::system_error where it cannot be read.
inline std::string read_file(const std::string& filename) {
    errno = 0;
    std::ifstream file(filename, std::ios::binary);
    std::ostringstream content;
    if (file && file.peek() != std::ifstream::traits_type::eof())
        content << file.rdbuf();
    if (!file.is_open() || file.bad() || content.fail())
        throw std::system_error(errno ? errno : EIO, std::generic_category(), filename);
    return std::move(content).str();
}

/// Why a folder was not read: error numbers, 0 where there is none.
struct FolderErrors {
    int opening = 0;
    int reading = 0; ///< after some of its names
};

/// Calls use(name) for every name in a folder, "." and ".." among them, in the order of the system.
template<typename Use>
FolderErrors for_each_name(const std::string& folder, Use use) {
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(folder.c_str()), closedir);
    if (!directory)
        return {errno};
    for (errno = 0; const dirent* const entry = readdir(directory.get()); errno = 0)
        use(std::string(entry->d_name));
    return {0, errno};
}

/// The same, with a line on standard output for a folder that cannot be opened.
template<typename Use>
FolderErrors for_each_name_or_print(const std::string& folder, Use use) {
    const FolderErrors errors = for_each_name(folder, use);
    if (errors.opening != 0)
        std::cout << "Error(" << errors.opening << ") opening " << folder << std::endl;
    return errors;
}

/// A link to one included.
inline bool is_regular_file(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

/// The absolute path without links and ".."; empty when there is nothing of that name.
inline std::string real_path(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr), std::free);
    return resolved ? resolved.get() : "";
}

} // namespace zelvor
