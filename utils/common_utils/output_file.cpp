#include "utils/common_utils/output_file.h"

#include "utils/common_utils/files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>
#include <cstring>
#include <mutex>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zelvor {

namespace {

constexpr std::size_t BUFFER_BYTES = 65536;
constexpr std::size_t UNIQUE_LETTERS = 6; ///< that tell a temporary from others

/// Names that a signal handler can read; empty ones are free.
std::array<char[PATH_MAX], 4> temporaries;
std::mutex changing_temporaries;

extern "C" void remove_temporaries(int signal) {
    for (const char* const name : temporaries)
        if (*name)
            unlink(name);
    std::signal(signal, SIG_DFL); // only now: a second one must not end the process before
    raise(signal);
}

/// Without a free place the file is removed by its owner only.
void remember(const std::string& name) {
    const std::lock_guard lock(changing_temporaries);
    const auto place = std::ranges::find_if(temporaries, [](const char* known) { return !*known; });
    if (place != temporaries.end() && name.size() < PATH_MAX) {
        std::memcpy(*place + 1, name.c_str() + 1, name.size());
        (*place)[0] = name[0]; // last: the name counts from here
    }
}

void forget(const std::string& name) {
    const std::lock_guard lock(changing_temporaries);
    for (char* const known : temporaries)
        if (name == known)
            *known = '\0';
}

constexpr int MAX_LINKS = 40; // as the system follows

/// Puts what a link names in place of its path; false where it is none.
bool follow_link(std::string& path) {
    std::array<char, PATH_MAX> link{};
    const ssize_t length = readlink(path.c_str(), link.data(), link.size());
    if (length <= 0)
        return false;
    const std::string next(link.data(), static_cast<std::size_t>(length));
    path = next.starts_with('/') ? next : path.substr(0, path.rfind('/') + 1) + next;
    return true;
}

/// Makes a file and puts a name that nobody has in place of the letters at the end of this one. As mkostemp, but with
/// permissions that the system cuts by the umask: to ask for that is to change it, for all threads.
int make_unique(std::string& name, mode_t mode) {
    constexpr std::string_view letters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int max_tries = 1000;
    std::array<unsigned char, UNIQUE_LETTERS> numbers{};
    int descriptor = -1;
    for (int i = 0; i < max_tries && descriptor < 0 && getentropy(numbers.data(), numbers.size()) == 0; ++i) {
        std::ranges::transform(numbers, name.end() - UNIQUE_LETTERS,
                               [&](unsigned char number) { return letters[number % letters.size()]; });
        descriptor = open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (descriptor < 0 && errno != EEXIST)
            break;
    }
    return descriptor;
}

/// What is behind an output, an open descriptor included.
bool status_of_output(const std::string& path, struct stat& status) {
    const int descriptor = OutputFile::descriptor_of(path);
    return (descriptor >= 0 ? fstat(descriptor, &status) : stat(path.c_str(), &status)) == 0;
}

bool is_same_regular(const struct stat& status1, const struct stat& status2) {
    return status1.st_dev == status2.st_dev && status1.st_ino == status2.st_ino && S_ISREG(status1.st_mode);
}

} // namespace

bool OutputFile::is_one(const std::string& output1, const std::string& output2) {
    const int descriptor1 = descriptor_of(output1), descriptor2 = descriptor_of(output2);
    if (descriptor1 < 0 && descriptor2 < 0)
        return target_of(output1) == target_of(output2);
    struct stat status1 {
    }, status2{};
    return descriptor1 == descriptor2 || (status_of_output(output1, status1) && status_of_output(output2, status2) &&
                                          is_same_regular(status1, status2));
}

const std::string* OutputFile::first_input(const std::string& output, std::span<const std::string> inputs) {
    struct stat status1 {
    }, status2{};
    if (!status_of_output(output, status1))
        return nullptr;
    const auto found = std::ranges::find_if(inputs, [&](const std::string& input) {
        const bool is_read = (input == "-" ? fstat(STDIN_FILENO, &status2) : stat(input.c_str(), &status2)) == 0;
        return is_read && is_same_regular(status1, status2);
    });
    return found == inputs.end() ? nullptr : &*found;
}

int OutputFile::descriptor_of(const std::string& path) {
    if (path.empty() || path == "-" || path == "/dev/stdout") // the last also where there is no /proc
        return STDOUT_FILENO;
    const std::string descriptors[] = {real_path("/proc/self/fd"), real_path("/proc/thread-self/fd")};
    std::string place = path; // under which of its names ever
    for (int links = 0; links < MAX_LINKS; ++links) {
        const std::size_t slash = place.rfind('/') + 1;
        const std::string folder = real_path(slash == 0 ? "." : place.substr(0, slash));
        const char* const end = place.data() + place.size();
        int descriptor = -1;
        if (!folder.empty() && std::ranges::find(descriptors, folder) != std::end(descriptors) &&
            std::from_chars(place.data() + slash, end, descriptor).ptr == end)
            return descriptor;
        if (!follow_link(place))
            return -1;
    }
    return -1;
}

std::string OutputFile::target_of(const std::string& path) {
    std::string target = path;
    for (int links = 0; links < MAX_LINKS; ++links) {
        if (std::string real = real_path(target); !real.empty())
            return real;
        if (!follow_link(target)) { // nothing there yet
            const std::size_t slash = target.rfind('/') + 1;
            const std::string folder = real_path(slash == 0 ? "." : target.substr(0, slash));
            return folder.empty() ? target : (folder == "/" ? "" : folder) + "/" + target.substr(slash);
        }
    }
    return path;
}

OutputFile::OutputFile(const std::string& path) : m_path(path.empty() || path == "-" ? "standard output" : path) {
    m_buffer.reserve(2 * BUFFER_BYTES);
    struct stat status {};
    if (const int descriptor = descriptor_of(path); descriptor >= 0)
        m_descriptor = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    else if (stat(path.c_str(), &status) != 0 ? errno == ELOOP : !S_ISREG(status.st_mode))
        m_descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    else
        open_temporary();
    if (m_descriptor < 0)
        fail();
}

void OutputFile::open_temporary() {
    constexpr std::size_t max_name_bytes = 200; // a name of any length has one beside it
    m_path = target_of(m_path);
    const std::size_t slash = m_path.rfind('/') + 1;
    m_temporary =
        m_path.substr(0, slash) + "." + m_path.substr(slash, max_name_bytes) + "." + std::string(UNIQUE_LETTERS, '_');
    struct stat status {};
    const bool exists = stat(m_path.c_str(), &status) == 0;
    sigset_t all, before; // no signal between making the file and knowing it
    sigfillset(&all);
    sigprocmask(SIG_SETMASK, &all, &before);
    m_descriptor = make_unique(m_temporary, exists ? 0600 : 0666); // nobody may read more than of the old file
    const int error = errno;
    if (m_descriptor >= 0)
        remember(m_temporary);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    if (m_descriptor < 0) {
        m_temporary.clear();
        errno = error;
        fail();
    }
    if (!exists)
        return;
    if (fchown(m_descriptor, status.st_uid, status.st_gid) != 0)
        errno = 0; // ours, then
    fchmod(m_descriptor, status.st_mode & 0777);
}

OutputFile::~OutputFile() {
    if (m_descriptor >= 0)
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
        else if (errno != EINTR) {
            m_buffer.clear(); // not to be tried again
            fail();
        }
    }
    m_buffer.clear();
}

void OutputFile::commit() {
    flush();
    if (m_temporary.empty())
        return;
    const bool is_on_disk = fsync(m_descriptor) == 0 || errno == EINVAL || errno == ENOTSUP; // not on every system
    if (!is_on_disk || rename(m_temporary.c_str(), m_path.c_str()) != 0)
        fail();
    forget(m_temporary);
    m_temporary.clear();
}

bool OutputFile::give_up() {
    if (!m_temporary.empty())
        return false;
    flush();
    return true;
}

void OutputFile::fail() const { throw std::system_error(errno, std::generic_category(), m_path); }

void open_missing_streams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (fcntl(stream, F_GETFD) == -1)
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY); // takes the lowest free descriptor
}

void remove_temporaries_on_signals() {
    struct sigaction action {};
    action.sa_handler = remove_temporaries;
    sigfillset(&action.sa_mask);
    for (const int signal :
         {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2, SIGALRM, SIGVTALRM, SIGPROF, SIGXCPU}) {
        struct sigaction current {};
        if (sigaction(signal, nullptr, &current) == 0 && current.sa_handler != SIG_IGN) // as under nohup
            sigaction(signal, &action, nullptr);
    }
}

} // namespace zelvor
