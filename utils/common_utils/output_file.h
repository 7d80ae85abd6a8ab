#pragma once

#include <span>
#include <string>
#include <string_view>

namespace zelvor {

/// A file that is there when it is complete, and not before: it is written under a hidden name beside its own and
/// renamed by commit(). A link stays a link; the file keeps its permissions and, where the process may give it away,
/// its owner. Standard output, open descriptors (/dev/stdout, /dev/fd/N) and what is no regular file (a terminal, a
/// pipe, a device) are written directly. Every failure throws std::system_error that names the file.
class OutputFile {
public:
    explicit OutputFile(const std::string& path); ///< empty or "-": standard output
    ~OutputFile();                                ///< removes what was not committed
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(std::string_view text);
    void commit(); ///< all on the disk and under its name; nothing may be written afterwards
    /// Ends a run that is given up: false where there will be no file, true where what was written stays.
    bool give_up();

    /// The descriptor that a path stands for ("-", /dev/stdout, /dev/fd/N, a link to one of them), or -1.
    static int descriptor_of(const std::string& path);
    /// Whether two paths would write to one file.
    static bool is_one(const std::string& output1, const std::string& output2);
    /// The first of the inputs (of which "-" is standard input) that the output would write to; null: none.
    static const std::string* first_input(const std::string& output, std::span<const std::string> inputs);
    /// The path of the file that would be written, without links, also where there is none yet.
    static std::string target_of(const std::string& path);

private:
    void open_temporary();
    void flush();
    [[noreturn]] void fail() const;

    std::string m_path;
    std::string m_temporary; ///< empty where there is none
    std::string m_buffer;
    int m_descriptor = -1;
};

/// From now on the signals that users and limits send (SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2, SIGALRM,
/// SIGVTALRM, SIGPROF, SIGXCPU) end the process as ever, but without the temporaries.
void remove_temporaries_on_signals();

/// A standard stream that the caller has closed must not become the descriptor of another file; reading or writing it
/// still fails.
void open_missing_streams();

} // namespace zelvor
