#include "utils/common_utils/output_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zelvor {

namespace {

constexpr std::size_t BUFFER_BYTES = 65536;

/// Names that a signal handler can read; empty ones are free.
std::array<char[PATH_MAX], 4> temporaries;

extern "C" void remove_temporaries(int signal) {
    for (const char* const name : temporaries)
        if (*name)
            unlink(name);
    raise(signal); // the default action is back
}

/// Without a free place the file is removed by its owner only.
void remember(const std::string& name) {
    const auto place = std::ranges::find_if(temporaries, [](const char* known) { return !*known; });
    if (place != temporaries.end() && name.size() < PATH_MAX) {
        std::memcpy(*place + 1, name.c_str() + 1, name.size());
        (*place)[0] = name[0]; // last: the name counts from here
    }
}

void forget(const std::string& name) {
    for (char* const known : temporaries)
        if (name == known)
            *known = '\0';
}

/// The file behind a link, or the path itself.
std::string target_of(const std::string& path) {
    char* const real = realpath(path.c_str(), nullptr);
    std::string target = real ? real : path;
    std::free(real);
    return target;
}

mode_t default_mode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

} // namespace

OutputFile::OutputFile(const std::string& path) : m_path(path.empty() || path == "-" ? "standard output" : path) {
    m_buffer.reserve(2 * BUFFER_BYTES);
    struct stat status {};
    if (path.empty() || path == "-") {
        m_descriptor = STDOUT_FILENO;
    } else if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
        m_descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
        if (m_descriptor < 0)
            fail();
    } else {
        m_path = target_of(path);
        open_temporary();
    }
}

void OutputFile::open_temporary() {
    const std::size_t slash = m_path.rfind('/') + 1;
    m_temporary = m_path.substr(0, slash) + "." + m_path.substr(slash) + ".XXXXXX";
    m_descriptor = mkostemp(m_temporary.data(), O_CLOEXEC);
    if (m_descriptor < 0) {
        m_temporary.clear();
        fail();
    }
    remember(m_temporary);
    struct stat status {};
    fchmod(m_descriptor, stat(m_path.c_str(), &status) == 0 ? status.st_mode & 07777 : default_mode());
}

OutputFile::~OutputFile() {
    if (m_descriptor > STDERR_FILENO)
        close(m_descriptor);
    if (!m_temporary.empty()) {
        unlink(m_temporary.c_str());
        forget(m_temporary);
    }
}

void OutputFile::write(std::string_view text) {
    m_buffer += text;
    if (m_buffer.size() >= BUFFER_BYTES)
        flush();
}

void OutputFile::flush() {
    for (std::size_t written = 0; written < m_buffer.size();) {
        const ssize_t count = ::write(m_descriptor, m_buffer.data() + written, m_buffer.size() - written);
        if (count >= 0)
            written += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            fail();
    }
    m_buffer.clear();
}

void OutputFile::commit() {
    flush();
    if (m_temporary.empty())
        return;
    if (fsync(m_descriptor) != 0 || rename(m_temporary.c_str(), m_path.c_str()) != 0)
        fail();
    forget(m_temporary);
    m_temporary.clear();
}

void OutputFile::fail() const { throw std::system_error(errno, std::generic_category(), m_path); }

void remove_temporaries_on_signals() {
    struct sigaction action {};
    action.sa_handler = remove_temporaries;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        struct sigaction current {};
        if (sigaction(signal, nullptr, &current) == 0 && current.sa_handler != SIG_IGN) // as under nohup
            sigaction(signal, &action, nullptr);
    }
}

} // namespace zelvor
