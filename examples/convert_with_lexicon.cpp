#include "tools/TaggerFormatConverter.h"

#include <fstream>
#include <iostream>
#include <new>

/// Converts a TEI corpus with a lexicon, which the command-line tool has no option for. Standard output gets the token
/// lines, OUTPUT the sentence separators; with /dev/stdout as OUTPUT and a pipe behind it, both come in order:
///     convert_with_lexicon examples/corpus examples/lexicon.txt /dev/stdout | cat
int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: convert_with_lexicon CORPUS LEXICON OUTPUT\n";
        return 2;
    }
    zelvor::TaggerFormatConverterParams params;
    params.input_directory = argv[1];
    params.lexicon_filename = argv[2];
    params.output_filename = argv[3];
    if (!std::ifstream(params.lexicon_filename)) { // the converter takes a missing lexicon for an empty one
        std::cerr << "cannot read " << params.lexicon_filename << '\n';
        return 1;
    }
    try {
        zelvor::TaggerFormatConverter().convert_format(params);
        return 0;
    } catch (const std::bad_alloc&) {
        std::cerr << "out of memory\n";
        return 1;
    }
}
