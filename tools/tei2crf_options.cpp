#include "tools/tei2crf_options.h"

#include "utils/common_utils/output_file.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <thread>

#include <getopt.h>
#include <sched.h>

namespace zelvor {

namespace {

constexpr std::string_view USAGE = "usage: tei2crf [-l LEXICON] [-o OUT] [OPTION]... INPUT...\n"
                                   "       tei2crf --survey INPUT...\n";

constexpr std::string_view HELP =
    R"(Writes the training data of a sequence tagger: a line a token, an empty line after each sentence.

INPUT is a TEI file, a folder of .tei and .xml files at any depth, or - for one document on standard input.
The files are read in the order of their paths. --survey tells what is in them, and which options fit.

Annotation is read from attributes; with -l it comes from a lexicon, by the ids in the JSON of lemma attributes.

  -l, --lexicon=FILE       the lexicon, a line an analysed word form
  -o, --output=FILE        write to FILE, which appears when it is complete; default: standard output

Elements, by their names without prefix, several separated by commas:
      --sentence=NAMES     sentences; default: s
      --word=NAMES         words; default: w
      --punctuation=NAMES  punctuation; default: pc,c, with -l: c
      --skip=NAMES *       passed over with all they hold; default: note,fw,del,gap,teiHeader
      --choice=WHICH *     of a choice, regular (corr, reg, expan) or original (sic, orig, abbr); default: regular
      --break=MARKS *      a token that is one of these characters ends its sentence; default: none

Values, from the first SOURCE that is there, several separated by commas. A SOURCE is an attribute, or
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
      --columns=LIST       form, lemma, pos, upos, feats and @SOURCE, separated by commas; default: form,pos
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
    COLUMNS = 256,
    SEPARATOR,
    ON_BAD_TOKEN,
    HIDDEN,
    STRICT,
    REPORT,
    SENTENCE,
    WORD,
    PUNCTUATION,
    SKIP,
    CHOICE,
    BREAK,
    FORM,
    LEMMA,
    POS,
    UPOS,
    FEATS,
    PUNCTUATION_TAG,
    MAP,
    NFC,
    HEADER,
    WHOLE_SENTENCES,
    SURVEY,
};

constexpr option OPTIONS[] = {
    {"lexicon", required_argument, nullptr, 'l'},
    {"output", required_argument, nullptr, 'o'},
    {"sentence", required_argument, nullptr, SENTENCE},
    {"word", required_argument, nullptr, WORD},
    {"punctuation", required_argument, nullptr, PUNCTUATION},
    {"skip", required_argument, nullptr, SKIP},
    {"choice", required_argument, nullptr, CHOICE},
    {"break", required_argument, nullptr, BREAK},
    {"form", required_argument, nullptr, FORM},
    {"lemma", required_argument, nullptr, LEMMA},
    {"pos", required_argument, nullptr, POS},
    {"upos", required_argument, nullptr, UPOS},
    {"feats", required_argument, nullptr, FEATS},
    {"punctuation-tag", required_argument, nullptr, PUNCTUATION_TAG},
    {"map", required_argument, nullptr, MAP},
    {"nfc", no_argument, nullptr, NFC},
    {"columns", required_argument, nullptr, COLUMNS},
    {"separator", required_argument, nullptr, SEPARATOR},
    {"header", no_argument, nullptr, HEADER},
    {"on-bad-token", required_argument, nullptr, ON_BAD_TOKEN},
    {"whole-sentences", no_argument, nullptr, WHOLE_SENTENCES},
    {"survey", no_argument, nullptr, SURVEY},
    {"jobs", required_argument, nullptr, 'j'},
    {"hidden", no_argument, nullptr, HIDDEN},
    {"strict", no_argument, nullptr, STRICT},
    {"report", required_argument, nullptr, REPORT},
    {"verbose", no_argument, nullptr, 'v'},
    {"quiet", no_argument, nullptr, 'q'},
    {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, 'V'},
    {nullptr, 0, nullptr, 0},
};

/// These are about annotation in attributes.
constexpr int WITHOUT_LEXICON[] = {SKIP, CHOICE, BREAK, FORM, LEMMA, POS, UPOS, FEATS, PUNCTUATION_TAG};
constexpr int WITH_SURVEY[] = {SURVEY, HIDDEN, SKIP, 'q'};

constexpr std::size_t MAX_JOBS = 1024;

template<typename Value>
struct Choice {
    std::string_view name;
    Value value;
};

constexpr Choice<bool> CHOICES[] = {{"regular", false}, {"original", true}};
constexpr Choice<char> SEPARATORS[] = {{"blank", ' '}, {"tab", '\t'}};
constexpr Choice<ConversionOptions::BadToken> BAD_TOKENS[] = {{"drop", ConversionOptions::BadToken::DROP},
                                                              {"replace", ConversionOptions::BadToken::REPLACE},
                                                              {"fail", ConversionOptions::BadToken::FAIL}};

/// The value of this name. Throws std::invalid_argument, which names those that there are.
template<typename Value, std::size_t N>
Value choose(const Choice<Value> (&choices)[N], std::string_view name) {
    const auto found = std::ranges::find(choices, name, &Choice<Value>::name);
    if (found != std::end(choices))
        return found->value;
    std::string names;
    for (const Choice<Value>& choice : choices)
        names.append(names.empty() ? "" : ", ").append(choice.name);
    throw std::invalid_argument("it is one of " + names);
}

ConversionOptions::Names read_names(std::string_view list) {
    ConversionOptions::Names names;
    for (const std::string_view name : split_list(list)) {
        if (name.empty() || name.find_first_of(": \t\r\n<>") != std::string_view::npos)
            throw std::invalid_argument("names of elements, without prefix, separated by commas");
        names.emplace_back(name);
    }
    return names;
}

std::string read_path(const std::string& path) {
    if (path.empty())
        throw std::invalid_argument("the name of a file");
    return path;
}

std::size_t read_jobs(const std::string& text) {
    std::size_t jobs = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), jobs);
    if (error != std::errc() || end != text.data() + text.size() || jobs < 1 || jobs > MAX_JOBS)
        throw std::invalid_argument("a number from 1 to " + std::to_string(MAX_JOBS));
    return jobs;
}

/// The cores that the process may use.
std::size_t available_cores() {
    cpu_set_t cores;
    const bool is_known = sched_getaffinity(0, sizeof cores, &cores) == 0;
    return is_known ? static_cast<std::size_t>(CPU_COUNT(&cores)) : std::max(1U, std::thread::hardware_concurrency());
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

std::string name_of(int key) { return std::ranges::find(OPTIONS, key, &option::val)->name; }

/// Throws std::invalid_argument, which says what the value should be.
void apply(int key, const std::string& value, Tei2crfOptions& options) {
    using Use = ValueSources::Use;
    ConversionTask& task = options.task;
    ConversionOptions& conversion = task.options;
    const std::map<int, std::function<void()>> actions{
        {'j', [&] { task.jobs = read_jobs(value); }},
        {'l', [&] { task.lexicon = read_path(value); }},
        {'o', [&] { task.output = read_path(value); }},
        {'v', [&] { conversion.verbose = true; }},
        {'q', [&] { ++options.quiet; }},
        {SENTENCE, [&] { conversion.sentence = read_names(value); }},
        {WORD, [&] { conversion.word = read_names(value); }},
        {PUNCTUATION, [&] { conversion.punctuation = read_names(value); }},
        {SKIP, [&] { conversion.skip = value.empty() ? ConversionOptions::Names() : read_names(value); }},
        {CHOICE, [&] { conversion.original_choice = choose(CHOICES, value); }},
        {BREAK, [&] { conversion.break_marks = value; }},
        {FORM, [&] { conversion.form = ValueSources(value, Use::FORM); }},
        {LEMMA, [&] { conversion.lemma = ValueSources(value, Use::OTHER); }},
        {POS, [&] { conversion.pos = ValueSources(value, Use::OTHER); }},
        {UPOS, [&] { conversion.upos = ValueSources(value, Use::OTHER); }},
        {FEATS, [&] { conversion.feats = ValueSources(value, Use::FEATS); }},
        {PUNCTUATION_TAG, [&] { conversion.punctuation_tag = value; }},
        {MAP, [&] { task.map = read_path(value); }},
        {NFC, [&] { conversion.nfc = true; }},
        {COLUMNS, [&] { conversion.columns = read_columns(value); }},
        {SEPARATOR, [&] { conversion.separator = choose(SEPARATORS, value); }},
        {HEADER, [&] { conversion.header = true; }},
        {ON_BAD_TOKEN, [&] { conversion.on_bad_token = choose(BAD_TOKENS, value); }},
        {WHOLE_SENTENCES, [&] { conversion.whole_sentences = true; }},
        {SURVEY, [&] { options.survey = true; }},
        {HIDDEN, [&] { task.hidden = true; }},
        {STRICT, [&] { conversion.strict = true; }},
        {REPORT, [&] { task.report = value == "-" ? read_path("") : read_path(value); }},
    };
    actions.at(key)();
}

/// Applies one option; false after a complaint.
bool read_option(int key, Tei2crfOptions& options) {
    if (key == '?') // getopt_long has complained
        return false;
    const std::string value = optarg ? optarg : "";
    try {
        apply(key, value, options);
        return true;
    } catch (const std::invalid_argument& error) {
        complain("wrong value of --" + name_of(key) + ": '" + value + "': " + error.what());
        return false;
    }
}

int check(const Tei2crfOptions& options, const std::vector<int>& keys) {
    const auto first_of = [&](auto is_wrong) {
        const auto found = std::ranges::find_if(keys, is_wrong);
        return found == keys.end() ? "" : name_of(*found);
    };
    const auto is_in = [](const auto& list, int key) { return std::ranges::find(list, key) != std::end(list); };
    if (const std::string name = first_of([&](int key) { return is_in(WITHOUT_LEXICON, key); });
        !options.task.lexicon.empty() && !name.empty())
        return complain("--" + name + " goes without -l only: it is about annotation in attributes");
    if (const std::string name = first_of([&](int key) { return !is_in(WITH_SURVEY, key); });
        options.survey && !name.empty())
        return complain("--" + name + " does not go with --survey: it writes nothing but what is in the files");
    if (options.task.inputs.empty())
        return complain("no input: name a file, a folder, or - for standard input");
    return 0;
}

} // namespace

std::optional<Tei2crfOptions> read_tei2crf_options(int argc, char** argv, int& status) {
    Tei2crfOptions options;
    options.task.jobs = available_cores();
    std::vector<int> keys;
    status = 0;
    for (int key; status == 0 && (key = getopt_long(argc, argv, "l:o:j:vqhV", OPTIONS, nullptr)) != -1;) {
        if (key == 'h' || key == 'V') {
            status =
                print(key == 'h' ? std::string(USAGE) + std::string(HELP) : "tei2crf (zelvor) " ZELVOR_VERSION "\n");
            return std::nullopt;
        }
        keys.push_back(key);
        if (!read_option(key, options))
            status = 2;
    }
    if (status == 0) {
        options.task.inputs.assign(argv + optind, argv + argc);
        options.task.options.has_lexicon = !options.task.lexicon.empty();
        status = check(options, keys);
    }
    if (status == 0)
        return options;
    std::cerr << USAGE << "Try 'tei2crf --help'.\n";
    return std::nullopt;
}

} // namespace zelvor
