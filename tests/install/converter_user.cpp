#include "tools/TaggerFormatConverter.h"

/// Converts the corpus argv[1].
int main(int, char** argv) {
    zelvor::TaggerFormatConverterParams params;
    params.input_directory = argv[1];
    params.output_filename = "/dev/null";
    zelvor::TaggerFormatConverter().convert_format(params);
}
