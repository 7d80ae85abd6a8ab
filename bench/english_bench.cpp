#include "bench/timing.h"
#include "tests/temporary_directory.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/files.h"
#include "utils/common_utils/text.h"
#include "utils/lexicon_utils/lexicon_readers.h"
#include "utils/lexicon_utils/rules.h"
#include "utils/lexicon_utils/wordnet.h"

#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

#include <sys/resource.h>

namespace {

constexpr char WORDNET_NOUNS[] = "/usr/share/wordnet/data.noun";
constexpr int NUM_RULES = 10'000, NUM_ENTRIES = 200'000;

template<typename Work>
double milliseconds(Work work) {
    return processor_seconds(work) * 1e3;
}

long peak_kilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void measure_rules() {
    std::vector<zelvor::Rule*> rules;
    rules.reserve(NUM_RULES);
    for (int i = 0; i < NUM_RULES; ++i) // every rule applies, and none covers another
        rules.push_back(new zelvor::Rule("x" + std::to_string(NUM_RULES + i), "", nullptr));
    std::vector<std::string> forms;
    const double time = milliseconds([&] { zelvor::apply_rules("lemma", rules, forms, nullptr); });
    std::printf("apply_rules, %d rules that all apply: %.1f ms, %zu forms\n", NUM_RULES, time, forms.size());
    zelvor::delete_rules(rules);
}

void measure_wordnet() {
    std::size_t fields = 0;
    const double split = milliseconds([&] {
        zelvor::for_each_line(WORDNET_NOUNS, [&](const std::string& line) {
            std::vector<std::string> tokens;
            zelvor::tokenize_arg(line, " ", tokens);
            fields += tokens.size();
        });
    });
    std::set<std::string> words, instances;
    const double time = milliseconds([&] { zelvor::parse_wordnet_file(WORDNET_NOUNS, words, &instances); });
    std::printf("data.noun: %.0f ms for %zu words, %zu instances; reading and splitting alone %.0f ms (%zu fields)\n",
                time, words.size(), instances.size(), split, fields);
    verdict("data.noun / reading and splitting its lines", time / split, Bound::AT_MOST, 2);
}

void measure_lexicon() {
    const zelvor::TemporaryDirectory directory;
    const std::string filename = directory.path("lexicon.txt");
    std::ofstream file(filename);
    for (int i = 0; i < NUM_ENTRIES; ++i)
        file << "form" << i << "s\tform" << i << "\tNN\n";
    file.close();
    std::set<std::string> names;
    std::multimap<std::string, zelvor::LexicalEntry*> entries;
    const std::ostringstream progress;
    std::streambuf* const output = std::cout.rdbuf(progress.rdbuf());
    const long before = peak_kilobytes();
    const double time = milliseconds([&] { zelvor::read_lexicon(filename, "", names, entries); });
    std::cout.rdbuf(output);
    std::printf("read_lexicon: %.0f ns and %.0f bytes an entry, %zu entries\n", time * 1e6 / NUM_ENTRIES,
                static_cast<double>(peak_kilobytes() - before) * 1024.0 / NUM_ENTRIES, entries.size());
    for (const auto& [word_form, entry] : entries)
        delete entry;
}

} // namespace

int main() {
    measure_lexicon();
    measure_rules();
    measure_wordnet();
}
