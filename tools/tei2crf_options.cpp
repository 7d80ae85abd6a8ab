#include "tools/tei2crf_options.h"

#include "training/conversion_settings.h"
#include "training/shown_text.h"
#include "utils/common_utils/output_file.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include <getopt.h>

namespace zelvor {

namespace {

constexpr std::string_view USAGE = "usage: tei2crf [-l LEXICON] [-o OUT] [OPTION]... INPUT...\n"
                                   "       tei2crf --survey INPUT...\n";

constexpr std::string_view HELP =
    R"(Writes the training data of a sequence tagger: a line for each token, an empty line after each sentence.

INPUT is a TEI file, a folder of .tei and .xml files at any depth, or - for one document on standard input.
The files are read in the order of their paths. --survey tells what is in them, and which options fit.

Annotation is read from attributes; with -l it comes from a lexicon, by the ids in the JSON of lemma attributes.

  -l, --lexicon=FILE       the lexicon, a line for each analysed word form
  -o, --output=FILE        write to FILE, which appears when it is complete; default: standard output

Elements, by their names without prefix, several separated by commas:
      --sentence=NAMES     sentences; default: s
      --word=NAMES         words; default: w
      --punctuation=NAMES  punctuation; default: pc,c, with -l: c
      --skip=NAMES *       passed over with all they hold; default: note,fw,del,gap,teiHeader
      --choice=WHICH *     of a choice, regular (corr, reg, expan) or original (sic, orig, abbr); default: regular
      --break=MARKS *      a token that is one of these characters ends its sentence; default: none

Values, from the first SOURCE that is there and not empty, several separated by commas. A SOURCE is an attribute, or
ATTRIBUTE:KEY in one that holds KEY=VALUE|KEY=VALUE:
      --form=SOURCES *     default: text,norm, where text is the text of the element
      --lemma=SOURCES *    default: lemma
      --pos=SOURCES *      default: pos,ana,msd:UPosTag,type
      --upos=SOURCES *     default: msd:UPosTag
      --feats=SOURCES *    default: msd, without UPosTag and XPosTag
      --punctuation-tag=TAG *  of punctuation that has none; default: PUNCT
      --map=FILE           rename tags: lines OLD, tab, NEW; OLD * is all others, an empty NEW leaves tokens out
      --nfc                Unicode's normal form C

Lines:
      --format=NAME        columns, or conllu: CoNLL-U, with columns of its own, tokens without a tag too, and
                           always in normal form C; default: columns
      --columns=LIST       form, lemma, pos, upos, feats and @SOURCE, separated by commas; with -l also case, degree,
                           gender, mood, number, person, tense, voice, pronoun_type, verb_type; default: form,pos
      --separator=NAME     blank or tab, between the columns; default: blank
      --header             a first line with the names of the columns
      --on-bad-token=WHAT  a token that would break its line (white space, control characters, overlong):
                           drop it, replace the characters by "_", or fail; default: drop
      --whole-sentences    only sentences of which no token is left out

  -j, --jobs=N             convert N files at the same time; default: a job for each core. The result is the same
      --hidden             read hidden files and folders below a folder too
      --strict             stop at the first fault
      --report=FILE        write a longer report, too: a page for a browser where FILE ends in .html, else JSON
  -v, --verbose            tell each token that is left out, with its place
  -q, --quiet              no progress line; twice: no report either
  -h, --help               this text
  -V, --version            the version

* not with -l

Exit status: 0 all well, 1 something could not be read or written or was malformed, or no token came out,
2 wrong usage.
)";

enum LongOption {
    SURVEY = 256,
    FIRST_SETTING,
};

/// What getopt_long tells of an option: its letter, or a number.
int key_of(const ConversionSetting& setting) {
    return setting.letter ? setting.letter : FIRST_SETTING + static_cast<int>(&setting - conversion_settings().data());
}

std::vector<option> long_options() {
    std::vector<option> options;
    for (const ConversionSetting& setting : conversion_settings())
        options.push_back(
            {setting.name.data(), setting.kind != ConversionSetting::Kind::FLAG, nullptr, key_of(setting)});
    options.insert(options.end(), {{"survey", no_argument, nullptr, SURVEY},
                                   {"quiet", no_argument, nullptr, 'q'},
                                   {"help", no_argument, nullptr, 'h'},
                                   {"version", no_argument, nullptr, 'V'},
                                   {nullptr, 0, nullptr, 0}});
    return options;
}

/// These go with a survey.
constexpr std::string_view WITH_SURVEY[] = {"hidden", "skip"};

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

using Settings = std::vector<const ConversionSetting*>;

/// Applies one option; false after a complaint.
bool read_option(int key, Tei2crfOptions& options, Settings& given) {
    options.quiet += key == 'q';
    options.survey = options.survey || key == SURVEY;
    const auto setting = std::ranges::find(conversion_settings(), key, key_of);
    if (setting == conversion_settings().end())
        return key != '?'; // getopt_long has complained
    given.push_back(&*setting);
    const std::string value = optarg ? optarg : "";
    try {
        setting->set(options.task, value);
        return true;
    } catch (const std::invalid_argument& error) {
        complain(shown_path("wrong value of --" + std::string(setting->name) + ": '" + value + "': " + error.what()));
        return false;
    }
}

int check(Tei2crfOptions& options, const Settings& given) {
    try {
        complete_settings(options.task, given);
    } catch (const std::invalid_argument& error) {
        return complain(error.what());
    }
    const auto odd = std::ranges::find_if(given, [](const ConversionSetting* setting) {
        return std::ranges::find(WITH_SURVEY, setting->name) == std::end(WITH_SURVEY);
    });
    if (options.survey && odd != given.end())
        return complain("--" + std::string((*odd)->name) +
                        " does not go with --survey: it writes nothing but what is in the files");
    if (options.task.inputs.empty())
        return complain("no input: name a file, a folder, or - for standard input");
    return 0;
}

} // namespace

std::optional<Tei2crfOptions> read_tei2crf_options(int argc, char** argv, int& status) {
    Tei2crfOptions options;
    options.task.jobs = available_cores();
    const std::vector<option> long_names = long_options();
    Settings given;
    status = 0;
    for (int key; status == 0 && (key = getopt_long(argc, argv, "l:o:j:vqhV", long_names.data(), nullptr)) != -1;) {
        if (key == 'h' || key == 'V') {
            status =
                print(key == 'h' ? std::string(USAGE) + std::string(HELP) : "tei2crf (zelvor) " ZELVOR_VERSION "\n");
            return std::nullopt;
        }
        if (!read_option(key, options, given))
            status = 2;
    }
    if (status == 0) {
        options.task.inputs.assign(argv + optind, argv + argc);
        status = check(options, given);
    }
    if (status == 0)
        return options;
    std::cerr << USAGE << "Try 'tei2crf --help'.\n";
    return std::nullopt;
}

} // namespace zelvor
