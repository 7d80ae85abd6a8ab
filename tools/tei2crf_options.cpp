#include "tools/tei2crf_options.h"

#include "utils/common_utils/output_file.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <string_view>
#include <system_error>

#include <getopt.h>

namespace zelvor {

namespace {

constexpr std::string_view USAGE = "usage: tei2crf -l LEXICON [-o OUT] [OPTION]... INPUT...\n";

constexpr std::string_view HELP =
    R"(Writes the training data of a sequence tagger: a line a token, an empty line after each sentence.

INPUT is a TEI file, a folder of .tei and .xml files at any depth, or - for one document on standard input.
The files are read in the order of their paths.

  -l, --lexicon=FILE       the lexicon, a line an analysed word form; required
  -o, --output=FILE        write to FILE, which appears when it is complete; default: standard output
      --columns=LIST       form, lemma and pos in any order, separated by commas; default: form,pos
      --separator=NAME     blank or tab, between the columns; default: blank
      --on-bad-token=WHAT  a token that would break its line (white space, control characters, an empty column,
                           overlong): drop it, replace the characters by "_", or fail; default: drop
      --hidden             read hidden files and folders below a folder too
      --strict             stop at the first fault
      --report=FILE        write the report as JSON, too
  -v, --verbose            tell each token that is left out, with its place
  -q, --quiet              no progress line; twice: no report either
  -h, --help               this text
  -V, --version            the version

Exit status: 0 all well, 1 something could not be read or written or was malformed, 2 wrong usage.
)";

enum LongOption { COLUMNS = 256, SEPARATOR, ON_BAD_TOKEN, HIDDEN, STRICT, REPORT };

constexpr option OPTIONS[] = {
    {"lexicon", required_argument, nullptr, 'l'},
    {"output", required_argument, nullptr, 'o'},
    {"columns", required_argument, nullptr, COLUMNS},
    {"separator", required_argument, nullptr, SEPARATOR},
    {"on-bad-token", required_argument, nullptr, ON_BAD_TOKEN},
    {"hidden", no_argument, nullptr, HIDDEN},
    {"strict", no_argument, nullptr, STRICT},
    {"report", required_argument, nullptr, REPORT},
    {"verbose", no_argument, nullptr, 'v'},
    {"quiet", no_argument, nullptr, 'q'},
    {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, 'V'},
    {nullptr, 0, nullptr, 0},
};

template<typename Value>
struct Choice {
    std::string_view name;
    Value value;
};

constexpr Choice<TokenLineFormat::Column> COLUMN_NAMES[] = {{"form", TokenLineFormat::Column::FORM},
                                                            {"lemma", TokenLineFormat::Column::LEMMA},
                                                            {"pos", TokenLineFormat::Column::POS}};
constexpr Choice<char> SEPARATORS[] = {{"blank", ' '}, {"tab", '\t'}};
constexpr Choice<TokenLineFormat::BadToken> BAD_TOKENS[] = {{"drop", TokenLineFormat::BadToken::DROP},
                                                            {"replace", TokenLineFormat::BadToken::REPLACE},
                                                            {"fail", TokenLineFormat::BadToken::FAIL}};

/// False for a name that is no choice.
template<typename Value, std::size_t N>
bool choose(const Choice<Value> (&choices)[N], std::string_view name, Value& value) {
    const auto found = std::ranges::find(choices, name, &Choice<Value>::name);
    if (found == std::end(choices))
        return false;
    value = found->value;
    return true;
}

bool read_columns(std::string_view list, std::vector<TokenLineFormat::Column>& columns) {
    columns.clear();
    for (std::size_t begin = 0; begin <= list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        TokenLineFormat::Column column{};
        if (!choose(COLUMN_NAMES, list.substr(begin, end - begin), column) ||
            std::ranges::find(columns, column) != columns.end())
            return false;
        columns.push_back(column);
        begin = end + 1;
    }
    return true;
}

int complain(const std::string& message) {
    std::cerr << "tei2crf: " << message << '\n';
    return 2;
}

int print(std::string_view text) {
    try {
        OutputFile out("");
        out.write(text);
        out.commit();
        return 0;
    } catch (const std::system_error& error) {
        std::cerr << "tei2crf: " << error.what() << '\n';
        return 1;
    }
}

/// Applies one option; false after a complaint.
bool apply(int key, Tei2crfOptions& options) {
    const std::string value = optarg ? optarg : "";
    bool is_known = true;
    switch (key) {
    case 'l':
        options.lexicon = value;
        break;
    case 'o':
        options.output = value;
        is_known = !value.empty();
        break;
    case COLUMNS:
        is_known = read_columns(value, options.format.columns);
        break;
    case SEPARATOR:
        is_known = choose(SEPARATORS, value, options.format.separator);
        break;
    case ON_BAD_TOKEN:
        is_known = choose(BAD_TOKENS, value, options.format.on_bad_token);
        break;
    case HIDDEN:
        options.hidden = true;
        break;
    case STRICT:
        options.strict = true;
        break;
    case REPORT:
        options.report = value;
        is_known = !value.empty() && value != "-";
        break;
    case 'v':
        options.verbose = true;
        break;
    case 'q':
        ++options.quiet;
        break;
    default: // getopt_long has complained
        return false;
    }
    if (!is_known)
        complain("wrong value of --" + std::string(std::ranges::find(OPTIONS, key, &option::val)->name) + ": '" +
                 value + "'");
    return is_known;
}

int check(const Tei2crfOptions& options) {
    if (options.lexicon.empty())
        return complain("no lexicon: option -l is missing");
    if (options.inputs.empty())
        return complain("no input: name a file, a folder, or - for standard input");
    return 0;
}

} // namespace

std::optional<Tei2crfOptions> read_tei2crf_options(int argc, char** argv, int& status) {
    Tei2crfOptions options;
    status = 0;
    for (int key; status == 0 && (key = getopt_long(argc, argv, "l:o:vqhV", OPTIONS, nullptr)) != -1;) {
        if (key == 'h')
            return status = print(std::string(USAGE) + std::string(HELP)), std::nullopt;
        if (key == 'V')
            return status = print("tei2crf (zelvor) " ZELVOR_VERSION "\n"), std::nullopt;
        if (!apply(key, options))
            status = 2;
    }
    if (status == 0) {
        options.inputs.assign(argv + optind, argv + argc);
        status = check(options);
    }
    if (status == 0)
        return options;
    std::cerr << USAGE << "Try 'tei2crf --help'.\n";
    return std::nullopt;
}

} // namespace zelvor
