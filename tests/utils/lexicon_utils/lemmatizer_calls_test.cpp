#include "utils/lexicon_utils/lemmatizer_calls.h"

#include "tests/temporary_directory.h"
#include "utils/WordFormContainer.h"
#include "utils/common_utils/text.h"

#include <gtest/gtest.h>

#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>

#include <sstream>

namespace zelvor {
namespace {

using Containers = std::multimap<std::string, WordFormContainer*>;

std::string list(WordFormContainer::Candidates::iterator begin, WordFormContainer::Candidates::iterator end) {
    std::string text;
    for (; begin != end; ++begin)
        text += begin->first + "=" + convert_to_string(begin->second) + " ";
    return text;
}
std::string lemmas(WordFormContainer& wfc) { return list(wfc.begin_predicted_lemmas(), wfc.end_predicted_lemmas()); }
std::string spellings(WordFormContainer& wfc) { return list(wfc.begin_predicted_ocr_wf(), wfc.end_predicted_ocr_wf()); }

// The programs note their arguments and input in `calls` and print the file `answer` or, where there is one, `MODEL`.
class ExternalPrograms : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"lemmatizer", "decode.sh"}) {
            directory.write(name, "#!/bin/sh\ncd " + directory.path() +
                                      "\necho \"$@\" >> calls; cat \"$1\" >> calls\n"
                                      "cat \"$2\" 2>/dev/null || cat answer\n");
            std::filesystem::permissions(directory.path(name), std::filesystem::perms::owner_all);
        }
        category.setAdditivity(false);
        category.addAppender(new log4cpp::OstreamAppender("log", &log));
        category.setPriority(log4cpp::Priority::INFO);
        testing::internal::CaptureStdout();
    }
    void TearDown() override {
        category.removeAllAppenders();
        free_lemmatizer_map(caches);
    }

    std::string calls() const { return string_replace(directory.read("calls"), directory.path(), "T"); }
    std::string output() const { return testing::internal::GetCapturedStdout(); }
    std::string logged(const std::string& heading) const {
        const std::size_t begin = log.str().find(heading);
        return begin == std::string::npos
                   ? ""
                   : std::string(string_replace(log.str().substr(begin, log.str().find('\n', begin) - begin),
                                                directory.path(), "T"));
    }

    TemporaryDirectory directory;
    std::string t = directory.path();
    std::string program = directory.path("lemmatizer");
    std::ostringstream log;
    log4cpp::Category& category = log4cpp::Category::getInstance("CALLS_TEST");
    WordFormContainer amat, second, rex, dux;
    Containers containers{{"amat", &amat}, {"amat", &second}, {"Rex", &rex}, {"dux", &dux}, {"nemo", nullptr}};
    LineCache cache;
    std::map<std::string, LineCache*> caches;
    bool modified = false;
};

TEST_F(ExternalPrograms, LemmatizerRunsCachedLinesTogether) {
    directory.write("answer", "rex rex||0.75 bare ||0.5 rego||x a||b||2\n\namat\ndux");
    cache = {{"amat", "amat amo||0.9"}, {"dux", "dux duco||1"}};
    const LineCache before = cache;
    call_lemmatizer(t, &category, {"DUX", "Rex", "amat", "rex", "%n"}, program, "m", "s", containers, &cache);
    EXPECT_EQ(calls(), "T/lemmas.txt m s 2 5 T/Lemmatizer\n%n\nrex\n");
    EXPECT_EQ(logged("lemmaizer"), "lemmaizer_command: T/lemmatizer T/lemmas.txt m s 2 5 T/Lemmatizer");
    EXPECT_EQ(logged("lemmatizer result"), "lemmatizer result: rex rex||0.75 bare ||0.5 rego||x a||b||2");
    // "DUX" sorts first, and the program's last line has no end: one line "duxdux duco||1amat amo||0.9"
    EXPECT_NE(log.str().find("\nduxdux duco||1amat amo||0.9\n"), std::string::npos);
    EXPECT_EQ(lemmas(rex), "rex=0.75 =0.5 rego=0 a=0 ");
    EXPECT_EQ(lemmas(amat) + lemmas(dux), "");
    EXPECT_EQ(cache, before);
    // All known: the program runs with an empty input all the same.
    directory.write("answer", "");
    directory.write("calls", "");
    call_lemmatizer(t, nullptr, {"amat", "dux"}, program, "m", "s", containers, &cache);
    EXPECT_EQ(calls(), "T/lemmas.txt m s 2 5 T/Lemmatizer\n");
    EXPECT_EQ(lemmas(amat), "amo=0.9 duco=1 "); // from "amat amo||0.9dux duco||1"
    EXPECT_EQ(lemmas(second), lemmas(amat));
    EXPECT_EQ(output(), "");
}

TEST_F(ExternalPrograms, OcrAsksTheCacheAndThenTheModel) {
    directory.write("answer", "dux dvx||0.2 dux||0.6 dvx||0.7\nrex\n");
    cache = {{"amat", "amat amat||0.9 arnat||0.1"}, {"rex", "rex rex||1"}};
    call_ocr(t, &category, {"amat", "Rex"}, t, "", "s", containers, &cache, modified);
    EXPECT_EQ(calls() + output(), "");
    EXPECT_TRUE(modified); // a line that came from the cache counts as well
    EXPECT_EQ(spellings(amat) + spellings(second) + spellings(rex), "amat=0.9 arnat=0.1 amat=0.9 arnat=0.1 rex=1 ");
    testing::internal::CaptureStdout();
    call_ocr(t, &category, {"Dux", "REX"}, t, "m", "s", containers, &cache, modified);
    EXPECT_EQ(output(), "ocr model: m\nocr seg model: s\n");
    EXPECT_EQ(calls(), "T/ocr.txt m s 2 5 T/ocr\ndux\n");
    EXPECT_EQ(logged("ocr_command"), "ocr_command: T/decode.sh T/ocr.txt m s 2 5 T/ocr");
    EXPECT_EQ(spellings(dux) + spellings(rex), "dvx=0.2 dux=0.6 rex=1 rex=1 ");
    EXPECT_EQ(cache["dux"], "dux dvx||0.2 dux||0.6 dvx||0.7");
    EXPECT_EQ(cache.size(), 3u);
}

TEST_F(ExternalPrograms, AllTagsKeepTheBestScore) {
    directory.write("models/n.lat", "amat amo||0.5 amans||0.7\n");
    directory.write("models/v.lat", "amat amo||0.9 amans||0.1\n");
    for (int run = 0; run < 2; ++run) {
        call_lemmatizer_all_pos(t, &category, {"AMAT"}, program, "models/lat", "seg", containers, &caches, {"v", "n"},
                                modified);
        EXPECT_EQ(lemmas(amat), "amo=0.9 amans=0.7 ");
        EXPECT_TRUE(modified);
        EXPECT_EQ(caches.at("v")->at("amat"), "amat amo||0.9 amans||0.1");
        modified = false;
        directory.write("models/v.lat", "");
        directory.write("models/n.lat", "");
    }
    EXPECT_EQ(calls(), "T/lemmas.txt models/n.lat n.seg 2 5 T/Lemmatizer\namat\n"
                       "T/lemmas.txt models/v.lat v.seg 2 5 T/Lemmatizer\namat\n"
                       "T/lemmas.txt models/n.lat n.seg 2 5 T/Lemmatizer\n"
                       "T/lemmas.txt models/v.lat v.seg 2 5 T/Lemmatizer\n");
    const std::string models = "lemmatizer model: models/n.lat\nlemmatizer seg model: n.seg\n"
                               "lemmatizer model: models/v.lat\nlemmatizer seg model: v.seg\n";
    EXPECT_EQ(output(), models + models);
    EXPECT_EQ(logged("lemmaizer_command").substr(0, 31), "lemmaizer_command: T/lemmatizer");
    testing::internal::CaptureStdout();
    call_lemmatizer_all_pos(t, nullptr, {"AMAT"}, program, "models/lat", "seg", containers, nullptr, {"v"}, modified);
    EXPECT_FALSE(modified);
    output();
}

TEST_F(ExternalPrograms, TagsWithTheirOwnWordFormsAppend) {
    directory.write("v.m", "amat amo||0.5 amo||0.9\n");
    directory.write("n.m", "amat amator||1\n");
    std::set<std::string> verbs{"AMAT", "Dux"}, nouns{"amat"};
    const std::map<std::string, std::set<std::string>*> word_forms{{"n", &nouns}, {"v", &verbs}, {"x", nullptr}};
    std::map<std::string, Containers*> by_tag{{"v", &containers}};
    caches["v"] = new LineCache{{"dux", "dux duco||0.25"}};
    call_lemmatizer_pos(t, &category, word_forms, program, "m", "s", by_tag, &caches, modified);
    EXPECT_EQ(calls(), "T/lemmas.txt n.m n.s 2 5 T/Lemmatizer\namat\nT/lemmas.txt v.m v.s 2 5 T/Lemmatizer\namat\n");
    EXPECT_EQ(lemmas(amat) + lemmas(dux), "amo=0.5 amo=0.9 duco=0.25 ");
    EXPECT_EQ(caches.at("n")->at("amat"), "amat amator||1"); // cached although the tag has no containers
    EXPECT_TRUE(modified);
    EXPECT_NE(logged("lemmatizer_command"), "");
    EXPECT_EQ(logged("lemmaizer"), "");
    // Hits alone leave the flag: they are parsed without the cache.
    modified = false;
    for (const char* model : {"n.m", "v.m"})
        directory.write(model, "");
    call_lemmatizer_pos(t, nullptr, word_forms, program, "m", "s", by_tag, &caches, modified);
    EXPECT_FALSE(modified);
    EXPECT_EQ(lemmas(dux), "duco=0.25 duco=0.25 ");
    EXPECT_EQ(caches.size(), 2u);
    call_lemmatizer_pos(t, nullptr, word_forms, program, "m", "s", by_tag, nullptr, modified);
    EXPECT_FALSE(modified);
    EXPECT_EQ(output(), "");
}

TEST_F(ExternalPrograms, SurviveWhateverComesBack) {
    const std::string quiet = "exec 2>/dev/null; ";
    const std::string longest(10'000'000, 'x');
    const std::pair<std::string, const char*> rows[] = {
        {"", ""},
        {"printf ' \\n   \\namat\\n'", ""},
        {"exit 3", ""},
        {"printf 'amat a||1\\r\\n'", "a=1 "},
        {"kill -9 $$", ""},
        {"printf 'amat a||1 \\0 b||2\\namat \\377||-3e999'", "a=1 \xFF=-1.79769e+308 "},
        {"head -c 100000 /dev/zero", ""},
        {"head -c 1000000 /dev/zero | tr '\\0' ' '", ""},
    };
    for (const auto& [script, expected] : rows) {
        directory.write("lemmatizer", "#!/bin/sh\n" + script + "\n");
        amat = WordFormContainer();
        call_lemmatizer(t, nullptr, {}, quiet + program, "m", "s", containers, nullptr);
        EXPECT_EQ(lemmas(amat), expected) << script;
    }
    directory.write("answer", "amat " + longest + "||1 b||" + longest + " " + longest + "\n");
    directory.write("lemmatizer", "#!/bin/sh\ncat " + directory.path("answer") + "\n");
    amat = WordFormContainer();
    call_lemmatizer(directory.path("missing"), nullptr, {"amat"}, program, "m", "s", containers, nullptr);
    EXPECT_EQ(lemmas(amat), longest + "=1 b=0 ");
    call_lemmatizer(t, nullptr, {"amat"}, quiet + directory.path("missing"), "m", "s", containers, nullptr);
    output();
}

} // namespace
} // namespace zelvor
