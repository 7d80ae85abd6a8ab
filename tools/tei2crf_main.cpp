#include "tools/tei2crf.h"
#include "utils/common_utils/output_file.h"

#include <csignal>
#include <exception>
#include <iostream>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// A stream that the caller has closed must not become the descriptor of another file; writing to it still fails.
void open_missing_streams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (fcntl(stream, F_GETFD) == -1)
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY); // takes the lowest free descriptor
}

} // namespace

int main(int argc, char** argv) {
    open_missing_streams();
    for (const int signal : {SIGPIPE, SIGXFSZ}) // reported as any failing output
        std::signal(signal, SIG_IGN);
    zelvor::remove_temporaries_on_signals();
    try {
        int status = 0;
        const auto options = zelvor::read_tei2crf_options(argc, argv, status);
        return options ? zelvor::run_tei2crf(*options) : status;
    } catch (const std::exception& error) {
        std::cerr << "tei2crf: " << error.what() << '\n';
        return 1;
    }
}
