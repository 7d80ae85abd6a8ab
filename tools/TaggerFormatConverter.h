#pragma once

#include <iosfwd>
#include <string>

namespace log4cpp {
class Category;
}

namespace zelvor {

class CrfTrainingTeiSaxParser;

struct TaggerFormatConverterParams {
    std::string input_directory;  ///< a TEI file, or a folder of them at any depth
    std::string output_filename;  ///< receives the sentence separators
    std::string lexicon_filename; ///< 31-field lines; empty or missing: an empty lexicon
};

/// Converts TEI training texts: one line "WORD_FORM POS" per token on standard output, one empty line per sentence in
/// the output file. Both streams are in step: a sentence's token lines are written before its separator. Its log is
/// opened before main(), in every program that links it, and the path of the log printed as a line on standard output.
class TaggerFormatConverter {
public:
    TaggerFormatConverter();
    virtual ~TaggerFormatConverter();

    /// Runs one conversion. Reports what cannot be read on standard output or in the log, and goes on; throws nothing
    /// but std::bad_alloc. Lines that were lost in writing are told in the log, but not an output file that cannot be
    /// opened. The entries of the lexicon and of the tokens stay allocated.
    void convert_format(const TaggerFormatConverterParams& params);

    /// Converts one file, or the files below a folder in the order of the system. Links to folders are not followed.
    void create_model_data_file(std::string path, std::ostream& out, CrfTrainingTeiSaxParser& parser);

    static log4cpp::Category& m_main_cat;
};

} // namespace zelvor
