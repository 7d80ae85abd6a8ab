#include "utils/ArpaLM.h"
#include "utils/WordFormContainer.h"
#include "utils/lexicon_utils/candidates.h"
#include "utils/lexicon_utils/lemmatizer_calls.h"
#include "utils/lexicon_utils/lemmatizer_maps.h"

#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>

/// Lemmatises a sentence: an external program proposes lemmas by each of its models (here as noun and as verb), and a
/// language model of lemmas chooses among them. FOLDER must exist; what the program printed is kept there for the next
/// run.
///     lemma_candidates examples/candidates/lemmatizer.sh examples/candidates/lemmas examples/candidates/lemmas.arpa
///         FOLDER Marcus duci paret
namespace {

using Caches = std::map<std::string, zelvor::LineCache*>;

/// The tags for which there is a model TAG.NAME beside the given FOLDER/NAME. Tags become part of a shell command, and
/// whoever may name a file there could name a command.
std::set<std::string> find_tags(const std::filesystem::path& model) {
    std::set<std::string> tags;
    const std::string ending = "." + model.filename().string();
    std::error_code error; // an unreadable folder has no files
    for (const auto& file :
         std::filesystem::directory_iterator(std::filesystem::absolute(model).parent_path(), error)) {
        const std::string name = file.path().filename().string();
        if (!name.ends_with(ending))
            continue;
        const std::string tag = name.substr(0, name.size() - ending.size());
        if (zelvor::is_shell_safe(tag))
            tags.insert(tag);
        else
            std::cerr << "left out, the shell might read more than a name in it: " << name << '\n';
    }
    return tags;
}

/// The lines as they were printed, which fill_ocr_hashmap reads. A file that export_lemmatizer_map writes would come
/// back with other keys, and its lines would never be found again.
void write_lines(const std::string& filename, const zelvor::LineCache& cache) {
    std::ofstream file(filename);
    for (const auto& [word_form, line] : cache)
        file << line << '\n';
}

void show_exported_keys(const Caches& caches, const std::string& folder) {
    std::filesystem::create_directories(folder);
    zelvor::export_lemmatizer_map(caches, folder);
    std::filesystem::current_path(folder); // the files are opened by their bare names
    Caches read_back;
    zelvor::fill_lemmatizer_hashmap_allpos(".", read_back);
    for (const auto& [tag, cache] : read_back)
        for (const auto& [key, line] : *cache)
            std::cout << "read back for " << tag << ": " << key << '\n';
    zelvor::free_lemmatizer_map(read_back);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 6) {
        std::cerr << "usage: lemma_candidates LEMMATIZER LEMMA_MODEL ARPA FOLDER WORD...\n";
        return 2;
    }
    const std::string folder = std::filesystem::absolute(argv[4]).string();
    log4cpp::Category& log = log4cpp::Category::getInstance("LEMMA_CANDIDATES");
    log.addAppender(new log4cpp::OstreamAppender("stderr", &std::cerr));
    zelvor::ArpaVocab vocab;
    zelvor::ArpaLM model(vocab, &log);
    if (!model.load(argv[3]))
        return 1;

    std::vector<std::unique_ptr<zelvor::WordFormContainer>> sentence;
    zelvor::WordFormContainers containers;
    std::set<std::string> word_forms;
    for (int i = 5; i < argc; ++i) {
        sentence.push_back(std::make_unique<zelvor::WordFormContainer>(argv[i]));
        containers.emplace(argv[i], sentence.back().get());
        word_forms.insert(argv[i]);
    }

    const std::set<std::string> tags = find_tags(argv[2]);
    if (tags.empty()) {
        std::cerr << "no model TAG." << std::filesystem::path(argv[2]).filename().string() << " beside " << argv[2]
                  << '\n';
        return 1;
    }
    Caches caches;
    for (const std::string& tag : tags)
        zelvor::fill_ocr_hashmap(folder + "/" + tag + ".lines", *(caches[tag] = new zelvor::LineCache));
    bool modified = false;
    zelvor::call_lemmatizer_all_pos(folder, nullptr, word_forms, argv[1], argv[2], argv[2], containers, &caches, tags,
                                    modified);
    if (modified)
        for (const std::string& tag : tags)
            write_lines(folder + "/" + tag + ".lines", *caches[tag]);

    std::vector<std::string> lemmas;
    std::set<std::string> lexicon_lemmas; // without a lexicon, every candidate will do
    for (const auto& word : sentence) {
        word->set_best_lemma(zelvor::select_lemma(lemmas, lexicon_lemmas, word->begin_predicted_lemmas(),
                                                  word->end_predicted_lemmas(), &vocab, &model, "la", &log));
        lemmas.push_back(word->get_best_lemma());
        std::cout << "lemma of " << word->get_word_form() << ": " << word->get_best_lemma() << '\n';
    }
    show_exported_keys(caches, folder + "/export");
    zelvor::free_lemmatizer_map(caches);
    return 0;
}
