// Measures entries on their way through a lexicon, over 20,000 lemmas: generation from paradigm rows, merging, writing
// (one flush a line), reading back. Each step is timed at 200,000 and at 400,000 entries; with one paradigm for both
// sizes the larger one folds the same analyses in again, with a growing one every entry is a new analysis.
// Prints medians in nanoseconds for one entry; fails when a lexicon comes out with other entries than expected.
#include "bench/timing.h"
#include "utils/LexicalEntry.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using zelvor::BaseLexicalEntry;
using zelvor::DeclensionEntry;
using zelvor::LexicalEntry;

constexpr std::size_t LEMMAS = 20'000;
constexpr int ROUNDS = 5;

enum Step { GENERATE, MERGE, WRITE, READ, STEPS };
constexpr const char* STEP_NAMES[STEPS] = {"generate", "merge", "write", "read"};

struct Setting {
    const char* name;
    std::size_t entries;
    std::size_t analyses; ///< different ones of one lemma
    bool extended;
};

/// Rows with endings of their own; the cases and numbers run through all of theirs.
std::vector<DeclensionEntry> make_rows(std::size_t count) {
    std::vector<DeclensionEntry> rows;
    for (std::size_t i = 0; i < count; ++i)
        rows.push_back({static_cast<zelvor::Case>(i % 7), i % 2 == 0, "e" + std::to_string(i), 1, zelvor::feminine});
    return rows;
}

std::string lemma_of(std::size_t number) { return "lemma" + std::to_string(number * 7919 % LEMMAS); }

/// Appends the nanoseconds of one of `count` operations.
template<typename Work>
void measure(std::vector<double>& times, std::size_t count, Work work) {
    times.push_back(processor_seconds(work) * 1e9 / static_cast<double>(count));
}

using Times = std::array<std::vector<double>, STEPS>;
using Entries = std::vector<std::unique_ptr<LexicalEntry>>;

/// Every lemma in turn, with one analysis after the other, as sources that are sorted by form would give them.
Entries generate(const Setting& setting) {
    std::vector<DeclensionEntry> rows = make_rows(setting.analyses);
    Entries entries;
    entries.reserve(setting.entries);
    for (std::size_t i = 0; i < setting.entries; ++i) {
        const std::string lemma = lemma_of(i);
        DeclensionEntry& row = rows[i / LEMMAS % rows.size()];
        entries.push_back(
            std::make_unique<LexicalEntry>(&row, lemma, std::vector{lemma}, "THIRD", std::string(), "NN", "-"));
        entries.back()->insert_originating_source_lemmas(i < setting.entries / 2 ? "a" : "b");
    }
    return entries;
}

bool run(const Setting& setting, Times& times) {
    Entries entries;
    measure(times[GENERATE], setting.entries, [&] { entries = generate(setting); });

    std::vector<BaseLexicalEntry*> merged;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
    measure(times[MERGE], setting.entries, [&] {
        for (const auto& entry : entries)
            entry->merge(merged, by_lemma, setting.extended);
    });

    std::ofstream null("/dev/null");
    measure(times[WRITE], setting.entries, [&] {
        for (const auto& entry : entries)
            entry->export_latin(null);
    });

    std::ostringstream line;
    entries.back()->export_latin(line);
    const std::string text = line.str();
    LexicalEntry again;
    measure(times[READ], setting.entries, [&] {
        for (std::size_t i = 0; i < setting.entries; ++i)
            again.parse_latin(text);
    });
    return merged.size() == LEMMAS * setting.analyses && by_lemma.size() == merged.size() &&
           again.get_word_form() == entries.back()->get_word_form();
}

} // namespace

int main() {
    const Setting settings[] = {
        {"one paradigm", 200'000, 10, true},     {"one paradigm", 400'000, 10, true},
        {"one paradigm", 200'000, 10, false},    {"one paradigm", 400'000, 10, false},
        {"growing paradigm", 200'000, 10, true}, {"growing paradigm", 400'000, 20, true},
    };
    std::printf("%-18s %-8s %9s", "ns for one entry", "compared", "entries");
    for (const char* const name : STEP_NAMES)
        std::printf(" %9s", name);
    std::printf("\n");
    for (const Setting& setting : settings) {
        Times times;
        for (int round = 0; round < ROUNDS; ++round) {
            if (!run(setting, times)) {
                std::fprintf(stderr, "unexpected entries\n");
                return 1;
            }
        }
        std::printf("%-18s %-8s %9zu", setting.name, setting.extended ? "in full" : "plainly", setting.entries);
        for (std::vector<double>& step : times) {
            std::ranges::nth_element(step, step.begin() + ROUNDS / 2);
            std::printf(" %9.0f", step[ROUNDS / 2]);
        }
        std::printf("\n");
    }
    return 0;
}
