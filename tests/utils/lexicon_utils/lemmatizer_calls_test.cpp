#include "utils/lexicon_utils/lemmatizer_calls.h"

#include "tests/testing.h"

#include "utils/WordFormContainer.h"
#include "utils/common_utils/text.h"
#include <glibmm/ustring.h>

namespace zelvor {

std::string list(WordFormContainer::Candidates::iterator begin, WordFormContainer::Candidates::iterator end) {
    std::string text;
    for (; begin != end; ++begin)
        text += begin->first + "=" + convert_to_string(begin->second) + " ";
    return text;
}
std::string lemmas(WordFormContainer& wfc) { return list(wfc.begin_predicted_lemmas(), wfc.end_predicted_lemmas()); }
std::string spellings(WordFormContainer& wfc) { return list(wfc.begin_predicted_ocr_wf(), wfc.end_predicted_ocr_wf()); }

// Both programs note their arguments and input in the file `calls`, and given any input print their model's file.
struct ExternalPrograms : testing::Test {
    ExternalPrograms() {
        script("cd " + t + "; echo \"$@\" >> calls; cat \"$1\" >> calls; [ -s \"$1\" ] && cat \"$2\"");
        std::filesystem::copy(program, t + "/decode.sh");
    }
    ~ExternalPrograms() override { free_lemmatizer_map(caches); }

    void script(const std::string& commands) const {
        directory.write("lemmatizer", "#!/bin/sh\n" + commands + "\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    }
    /// What has been noted since the last time.
    std::string calls() const {
        const std::string text = string_replace(directory.read("calls"), t, "T").raw();
        directory.write("calls", "");
        return text;
    }

    TemporaryDirectory directory;
    std::string t = directory.path(), program = directory.path("lemmatizer");
    CapturedLog log;
    WordFormContainer amat, second, rex, dux;
    WordFormContainers containers{{"amat", &amat}, {"amat", &second}, {"Rex", &rex}, {"dux", &dux}, {"x", nullptr}};
    LineCache cache;
    std::map<std::string, LineCache*> caches;
    bool modified = false;
};

TEST_F(ExternalPrograms, LemmatizerRunsCachedLinesTogether) {
    directory.write("m", "rex rex||0.75 bare ||0.5 rego||x a||b||2\n\namat\nx x||1\ndux");
    cache = {{"amat", "amat amo||0.9"}, {"dux", "dux duco||1"}};
    call_lemmatizer(t, &log.category, {"DUX", "Rex", "amat", "rex", "%n"}, program, "m", "s", containers, &cache);
    EXPECT_EQ(calls(), "T/lemmas.txt m s 2 5 T/Lemmatizer\n%n\nrex\n");
    // Neither the program's last line nor a cached one ends.
    log.expect({"lemmaizer_command: " + program + " " + t + "/lemmas.txt m s 2 5 " + t + "/Lemmatizer",
                "lemmatizer result: " + directory.read("m") + "dux duco||1amat amo||0.9"});
    EXPECT_EQ(lemmas(rex), "rex=0.75 =0.5 rego=0 a=0 ");
    EXPECT_EQ(cache.size(), 2U); // now every form is known, and the program runs with an empty input
    call_lemmatizer(t, nullptr, {"amat", "dux"}, program, "m", "s", containers, &cache);
    EXPECT_EQ(calls(), "T/lemmas.txt m s 2 5 T/Lemmatizer\n");
    EXPECT_EQ(lemmas(amat), "amo=0.9 duco=1 "); // from "amat amo||0.9dux duco||1"
}

TEST_F(ExternalPrograms, OcrAsksTheCacheAndThenTheModel) {
    directory.write("m", "dux dvx||0.2 dux||0.6 dvx||0.7\nrex\n");
    cache = {{"amat", "amat amat||0.9"}, {"rex", "rex rex||1"}};
    call_ocr(t, &log.category, {"amat", "Rex"}, t, "", "s", containers, &cache, modified);
    EXPECT_EQ(calls(), "");
    EXPECT_TRUE(modified); // a line that came from the cache counts as well
    EXPECT_EQ(spellings(amat) + spellings(second) + spellings(rex), "amat=0.9 amat=0.9 rex=1 ");
    const auto call = [&] { call_ocr(t, &log.category, {"Dux", "REX"}, t, "m", "s", containers, &cache, modified); };
    EXPECT_EQ(output_of(call), "ocr model: m\nocr seg model: s\n");
    EXPECT_EQ(calls(), "T/ocr.txt m s 2 5 T/ocr\ndux\n");
    log.expect({"ocr_command: " + t + "/decode.sh " + t + "/ocr.txt m s 2 5 " + t + "/ocr"});
    EXPECT_EQ(spellings(dux) + spellings(rex), "dvx=0.2 dux=0.6 rex=1 rex=1 ");
    EXPECT_EQ(cache["dux"], "dux dvx||0.2 dux||0.6 dvx||0.7");
}

TEST_F(ExternalPrograms, AllTagsKeepTheBestScore) {
    directory.write("models/n.lat", "amat amo||0.5 amans||0.7\n");
    directory.write("models/v.lat", "amat amo||0.9 amans||0.1\n");
    for (const std::string asked : {"amat\n", ""}) { // the second time, the caches answer
        modified = false;
        EXPECT_EQ(output_of([&] {
                      call_lemmatizer_all_pos(t, &log.category, {"AMAT"}, program, "models/lat", "seg", containers,
                                              &caches, {"v", "n"}, modified);
                  }),
                  "lemmatizer model: models/n.lat\nlemmatizer seg model: n.seg\n"
                  "lemmatizer model: models/v.lat\nlemmatizer seg model: v.seg\n");
        EXPECT_EQ(lemmas(amat), "amo=0.9 amans=0.7 ");
        EXPECT_TRUE(modified);
        EXPECT_EQ(calls(), "T/lemmas.txt models/n.lat n.seg 2 5 T/Lemmatizer\n" + asked +
                               "T/lemmas.txt models/v.lat v.seg 2 5 T/Lemmatizer\n" + asked);
    }
    EXPECT_EQ(caches.at("v")->at("amat"), "amat amo||0.9 amans||0.1");
    log.expect({"lemmaizer_command: " + program + " " + t + "/lemmas.txt models/n.lat n.seg 2 5 " + t + "/Lemmatizer"});
}

TEST_F(ExternalPrograms, TagsWithTheirOwnWordFormsAppend) {
    directory.write("v.m", "amat amo||0.5 amo||0.9\n");
    directory.write("n.m", "amat amator||1\n");
    Words verbs{"AMAT", "Dux"}, nouns{"amat"};
    const std::map<std::string, Words*> word_forms{{"n", &nouns}, {"v", &verbs}, {"x", nullptr}};
    std::map<std::string, WordFormContainers*> by_tag{{"v", &containers}};
    caches["v"] = new LineCache{{"dux", "dux duco||0.25"}};
    for (const std::string asked : {"amat\n", ""}) {
        modified = false;
        call_lemmatizer_pos(t, &log.category, word_forms, program, "m", "s", by_tag, &caches, modified);
        EXPECT_EQ(modified, !asked.empty()); // hits are parsed without the cache
        EXPECT_EQ(calls(), "T/lemmas.txt n.m n.s 2 5 T/Lemmatizer\n" + asked +
                               "T/lemmas.txt v.m v.s 2 5 T/Lemmatizer\n" + asked);
    }
    EXPECT_EQ(lemmas(amat), "amo=0.5 amo=0.9 amo=0.5 amo=0.9 ");
    EXPECT_EQ(lemmas(dux), "duco=0.25 duco=0.25 ");
    EXPECT_EQ(caches.at("n")->at("amat"), "amat amator||1"); // cached although the tag has no containers
}

TEST_F(ExternalPrograms, SurviveWhateverComesBack) {
    script("head -c 1000000 /dev/zero | tr '\\0' ' '; printf '\\namat a||1 \\0 b||2\\namat \\377||-3e999\\r\\n'; kill "
           "-9 $$");
    call_lemmatizer(t, nullptr, {}, "exec 2>/dev/null; " + program, "m", "s", containers, nullptr);
    EXPECT_EQ(lemmas(amat), "a=1 b=2 \xFF=-1.79769e+308 ");
}

TEST(ShellSafety, AllowsWhatNoShellReads) {
    for (const char* tag : {"", "n", "NN-SG_1.2", ".", "A,b:c+d@e%f=g-"})
        EXPECT_TRUE(is_shell_safe(tag)) << tag;
    for (const char* tag : {"$(", "N&N", "PRP$", "a b", "a\n", "../x", "-n", "~", "a*", "a;b", "`a`", "\xC3\xA4"})
        EXPECT_FALSE(is_shell_safe(tag)) << tag;
}

} // namespace zelvor
