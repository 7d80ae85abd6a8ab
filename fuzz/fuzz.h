#pragma once

#include <glib.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

/// What the fuzz targets share.
namespace zelvor::fuzz {

/// Ends the process, as a fault that the fuzzer keeps the input of, unless the property holds.
inline void require(bool holds, const char* property, std::string_view detail = {}) {
    if (holds)
        return;
    const std::string report = std::string("violated: ").append(property).append("\n").append(detail).append("\n");
    std::fputs(report.c_str(), stderr);
    std::abort();
}

/// Both values are shown where they differ.
inline void require_equal(const std::string& found, const std::string& expected, const char* property) {
    require(found == expected, property, found == expected ? "" : "found:    " + found + "\nexpected: " + expected);
}

/// The two parts of an input that a line "%%" separates; without one, the second part is empty.
inline std::pair<std::string, std::string> halves(const std::uint8_t* data, std::size_t size) {
    constexpr std::string_view separator = "\n%%\n";
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::size_t at = text.find(separator);
    return {std::string(text.substr(0, at)),
            at == std::string_view::npos ? "" : std::string(text.substr(at + separator.size()))};
}

/// Calls use(line) for every line as std::getline gives them.
template<typename Use>
void for_each_line(const std::string& text, Use use) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        use(line);
}

/// What is split at every separator; an empty text is one empty field.
inline std::vector<std::string> split_at(const std::string& text, char separator) {
    std::vector<std::string> fields(1);
    for (const char c : text)
        if (c == separator)
            fields.emplace_back();
        else
            fields.back() += c;
    return fields;
}

/// Whether a call comes to its end, or throws an exception of the kind that bad input may cause.
template<typename Exception = std::out_of_range, typename Call>
bool succeeds(Call call) {
    try {
        call();
        return true;
    } catch (const Exception&) {
        return false;
    }
}

/// A file in memory, for readers that want a name.
class MemoryFile {
public:
    explicit MemoryFile(std::string_view content)
        : m_descriptor(memfd_create("fuzz", MFD_CLOEXEC)), m_path("/proc/self/fd/" + std::to_string(m_descriptor)) {
        require(write(m_descriptor, content.data(), content.size()) == static_cast<ssize_t>(content.size()),
                "a file in memory can be written");
    }
    ~MemoryFile() { close(m_descriptor); }

    MemoryFile& operator=(MemoryFile&&) = delete; // nor is there any other copy

    const std::string& path() const { return m_path; }

private:
    int m_descriptor;
    std::string m_path;
};

inline void ignore_message(void* /*context*/, const char* /*format*/, ...) {}

/// Standard streams and the XML library are silent (what the fuzzer and the sanitizers say does not go through them),
/// and what GLib thinks wrong of a call is fatal.
inline const bool IS_SET_UP = [] {
    std::cout.setstate(std::ios::badbit);
    std::cerr.setstate(std::ios::badbit);
    xmlSetGenericErrorFunc(nullptr, ignore_message);
    g_log_set_always_fatal(static_cast<GLogLevelFlags>(G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR));
    return true;
}();

} // namespace zelvor::fuzz
