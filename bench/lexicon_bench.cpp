// Measures the owner of entries. First beside LexicalEntry::merge on one map, with 40,000 forms under the lemma "_":
// both take the same further entries, half of them known, and must come out equally large. Then reading, merging and
// writing a file of 500,000 lines, the merge also when all of them are known, and the memory of a line.
#include "bench/timing.h"
#include "tests/temporary_directory.h"
#include "utils/Lexicon.h"

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

using zelvor::BaseLexicalEntry;
using zelvor::LexicalEntry;
using zelvor::Lexicon;

constexpr std::size_t FORMS = 40'000, FURTHER = 2'000, LINES = 500'000;

std::unique_ptr<LexicalEntry> form_without_lemma(std::size_t number) {
    auto entry = std::make_unique<LexicalEntry>("_", "form" + std::to_string(number), "NN");
    entry->insert_originating_source_wordforms(std::to_string(number % 3));
    return entry;
}

std::vector<std::unique_ptr<LexicalEntry>> further_forms() {
    std::vector<std::unique_ptr<LexicalEntry>> entries;
    for (std::size_t i = 0; i < FURTHER; ++i)
        entries.push_back(form_without_lemma(i * FORMS * 2 / FURTHER + i % 7));
    return entries;
}

bool merge_under_one_lemma() {
    std::vector<std::unique_ptr<LexicalEntry>> owned;
    std::vector<BaseLexicalEntry*> merged;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
    for (std::size_t i = 0; i < FORMS; ++i) { // all different: merging them would take long and change nothing
        merged.push_back(owned.emplace_back(form_without_lemma(i)).get());
        by_lemma.emplace("_", merged.back());
    }
    const auto further = further_forms();
    const double map_seconds = processor_seconds([&] {
        for (const auto& entry : further)
            entry->merge(merged, by_lemma, true);
    });

    Lexicon lexicon;
    for (std::size_t i = 0; i < FORMS; ++i)
        lexicon.add(form_without_lemma(i), true);
    auto again = further_forms();
    const double seconds = processor_seconds([&] {
        for (auto& entry : again)
            lexicon.add(std::move(entry), true);
    });
    std::printf("merge on one map, %zu forms under one lemma: %.1f us\n", FORMS, map_seconds * 1e6 / FURTHER);
    verdict("Lexicon::add there, in us", seconds * 1e6 / FURTHER, Bound::AT_MOST, 3);
    return merged.size() == lexicon.size();
}

/// 20 forms of each lemma, as an ordinary lexicon has them.
void write_lines(const std::string& filename) {
    std::ofstream file(filename);
    for (std::size_t i = 0; i < LINES; ++i) {
        const std::string lemma = "lemma" + std::to_string(i / 20 * 7919 % LINES);
        file << i / 20 << '#' << lemma << "#NN#" << i / 20 << '#' << lemma << "#bench#NN#" << i << '#' << lemma << 'e'
             << i % 20
             << "#NOMINATIVE#-#-#FIRST#FEMININE#-#SINGULAR#-#Noun#-#-#-#-#bench#bench#bench#1#1#me#me#-#bench\n";
    }
}

double resident_bytes() {
    std::size_t pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

template<typename Work>
void report(const char* what, Work work) {
    const double before = resident_bytes();
    const double seconds = processor_seconds(work);
    std::printf("%-40s %6.0f ns a line, %6.0f bytes a line more\n", what, seconds * 1e9 / LINES,
                (resident_bytes() - before) / LINES);
}

bool use_files(const std::string& filename) {
    write_lines(filename);
    Lexicon lexicon, as_it_is;
    report("read", [&] { as_it_is.read(filename); });
    report("merge into an empty lexicon", [&] { lexicon.merge(filename, "first"); });
    report("merge the same again", [&] { lexicon.merge(filename, "second"); });
    report("write", [&] { lexicon.write(filename); });
    return lexicon.size() == LINES && as_it_is.size() == LINES;
}

} // namespace

int main() {
    const zelvor::TemporaryDirectory directory;
    const bool as_expected = merge_under_one_lemma() && use_files(directory.path("lexicon"));
    if (!as_expected)
        std::fprintf(stderr, "unexpected entries\n");
    return as_expected ? 0 : 1;
}
