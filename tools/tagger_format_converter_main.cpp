#include "tools/TaggerFormatConverter.h"
#include "utils/common_utils/crash_handler.h"
#include "utils/common_utils/output_file.h"
#include "utils/options.h"

#include <iostream>
#include <new>

#include <getopt.h>

namespace {

void print_usage() {
    std::cout << "./TaggerFormatConverter [-v <int>] [-h] -i <string> -o <string>" << std::endl
              << "-i (--input_filename) input filename" << std::endl
              << "-o (--output_filename) output filename" << std::endl
              << "-v (--verbose) verbose output" << std::endl
              << "Description: converts the tagger format of the training data" << std::endl;
}

} // namespace

/// Reads the options into params; false after the usage was printed, when there is nothing more to do.
bool read_cmd(zelvor::TaggerFormatConverterParams& params, int argc, char** argv) {
    static const option options[] = {
        {zelvor::OPTION_INPUT_FILENAME.c_str(), required_argument, nullptr, 'i'},
        {zelvor::OPTION_OUTPUT_FILENAME.c_str(), required_argument, nullptr, 'o'},
        {zelvor::OPTION_HELP.c_str(), no_argument, nullptr, 'h'},
        {zelvor::OPTION_VERBOSE.c_str(), required_argument, nullptr, 'v'},
        {nullptr, 0, nullptr, 0},
    };
    int index = 0;
    for (int key; (key = getopt_long(argc, argv, "hi:o:", options, &index)) != -1;) {
        switch (key) {
        case 'i':
            params.input_directory = optarg;
            break;
        case 'o':
            params.output_filename = optarg;
            break;
        case 'h':
            print_usage();
            return false;
        default: // --verbose, and what getopt_long has complained of
            break;
        }
    }
    return true;
}

int main(int argc, char** argv) {
    zelvor::open_missing_streams();
    zelvor::TaggerFormatConverter converter;
    zelvor::install_error_handler();
    zelvor::TaggerFormatConverterParams params;
    if (!read_cmd(params, argc, argv))
        return 0;
    std::string options[][2] = {
        {"input_filename", params.input_directory}, {"output_filename", params.output_filename}, {"", ""}};
    if (!zelvor::check_options(options))
        return 10;
    try {
        converter.convert_format(params);
        return 0;
    } catch (const std::bad_alloc&) {
        std::cerr << "TaggerFormatConverter: out of memory" << std::endl;
        return 1;
    }
}
