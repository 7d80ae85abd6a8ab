#pragma once

#include <string>
#include <string_view>

namespace zelvor {

/// A file that is there when it is complete, and not before: it is written under a hidden name beside its own and
/// renamed by commit(). A link stays a link; the file keeps its permissions. What is no regular file (a terminal, a
/// pipe, a device) and standard output are written directly. Every failure throws std::system_error that names the
/// file.
class OutputFile {
public:
    explicit OutputFile(const std::string& path); ///< empty or "-": standard output
    ~OutputFile();                                ///< removes what was not committed
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(std::string_view text);
    void commit(); ///< all on the disk and under its name; nothing may be written afterwards

private:
    void open_temporary();
    void flush();
    [[noreturn]] void fail() const;

    std::string m_path;
    std::string m_temporary; ///< empty where there is none
    std::string m_buffer;
    int m_descriptor = -1;
};

/// From now on SIGHUP, SIGINT and SIGTERM end the process as ever, but without the temporaries.
void remove_temporaries_on_signals();

} // namespace zelvor
