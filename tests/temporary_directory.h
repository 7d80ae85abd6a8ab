#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <stdlib.h>

namespace zelvor {

/// A folder of a test's or a benchmark's own, removed with all that is in it.
class TemporaryDirectory {
public:
    TemporaryDirectory() : m_path((std::filesystem::temp_directory_path() / "zelvor-XXXXXX").string()) {
        if (!mkdtemp(m_path.data())) {
            std::perror(m_path.c_str());
            std::exit(1);
        }
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    std::string path(const std::string& name = "") const { return name.empty() ? m_path : m_path + "/" + name; }

    /// Writes a file (its folders are made) and returns its path.
    std::string write(const std::string& name, std::string_view content) const {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        std::ofstream(path(name), std::ios::binary) << content;
        return path(name);
    }

    std::string read(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    std::string m_path;
};

} // namespace zelvor
