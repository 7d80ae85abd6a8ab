#include "tools/tei2crf.h"
#include "utils/common_utils/output_file.h"

#include <csignal>
#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    zelvor::open_missing_streams();
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
