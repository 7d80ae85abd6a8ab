#include "tests/temporary_directory.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zelvor {
namespace {

std::string lexicon_line(const std::string& id, const std::string& lemma_pos, const std::string& pos) {
    return "0#s#sp#3#l#src#" + lemma_pos + "#" + id + "#w#9#10#11#12#13#14#15#16#" + pos + "#18#19#20#21\n";
}

std::string word(const std::string& text, const std::string& id = "17", const std::string& lemma = "l") {
    return "<w lemma=\"x{'ls':[{'name':'" + lemma + "','wfs':[{'id':" + id + "}]}]}x\">" + text + "</w>";
}

class Tei2crf : public testing::Test {
protected:
    Tei2crf() { m_directory.write("lexicon", lexicon_line("17", "V", "Verb") + lexicon_line("18", "NN", "Noun")); }

    /// Runs a shell command within the folder, $T being the program with its lexicon and no report; standard output,
    /// then the exit status.
    std::pair<std::string, int> shell(const std::string& command) const {
        const std::string program = "'" ZELVOR_TEI2CRF "'";
        FILE* const pipe = popen(
            ("cd '" + m_directory.path() + "' && P=" + program + " T=\"$P -qq -l lexicon\"; " + command).c_str(), "r");
        std::string output;
        std::array<char, 4096> buffer{};
        for (std::size_t read; (read = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
            output.append(buffer.data(), read);
        return {output, WEXITSTATUS(pclose(pipe))};
    }

    TemporaryDirectory m_directory;
};

TEST_F(Tei2crf, SentencesThatAreNestedCutOffOrFollowedByTokens) {
    m_directory.write("corpus/1.xml", "<t><c>[</c><s>" + word("a") + "<s>" + word("b") + "</s>" + word("c") + "</s>" +
                                          word("d") + "<s/></t>");
    m_directory.write("corpus/2.xml", "<t><s>" + word("e") + "</s>" + word("f") + "<s>" + word("g"));
    m_directory.write("corpus/3.xml",
                      "<t>" + word("h") + "<s>" + word("rosae", "18") + word("-que", "17", "que") + "</s></t>");
    const std::string expected =
        "b Verb\nc Verb\nd Verb\n\nb Verb\nc Verb\nd Verb\n\n\ne Verb\nf Verb\n\nrosae NN\nqueque Verb\n\n";
    EXPECT_EQ(shell("$T corpus 2>/dev/null"), std::pair(expected, 1));
    // A sentence with more tokens behind it than are kept.
    std::string many = "<t><s/>", lines;
    for (int i = 0; i < 20000; ++i) {
        many += "<c>,</c>";
        lines += ", $,\n";
    }
    m_directory.write("many.xml", many + "<s><c>.</c></s></t>");
    EXPECT_EQ(shell("$T many.xml"), std::pair(lines + "\n. $.\n\n", 0));
    // A comment full of faults, each of which costs the XML library a copy of the comment so far.
    m_directory.write("faults.xml", "<t><s>" + word("a") + "</s><!-- " + std::string(1000000, '-') + " --></t>");
    EXPECT_EQ(shell("timeout 20 $T faults.xml 2>/dev/null"), std::pair(std::string("a Verb\n\n"), 1));
}

TEST_F(Tei2crf, ReportCountsEveryToken) {
    m_directory.write("a.xml", "<t>\n<c>,</c><s>" + word("a") + word("b c") + "\n<w lemma=''>no</w>" + word("d", "99") +
                                   "<w lemma='xnox'>e</w><w lemma='x[]x'>f</w><c>;</c></s>\n<s><s>" + word("g") +
                                   "</s></s></t>");
    m_directory.write("b.xml", "<!DOCTYPE t [<!ENTITY e SYSTEM '../e'>]><t>&e;<s>" + word("h") + "</s></t>");
    m_directory.write("lexicon", "//\nshort\n" + lexicon_line("17", "V", "Verb") + lexicon_line("17", "V", "Late"));
    const auto [output, status] =
        shell("$P -l lexicon -v --on-bad-token=replace --report r.json a.xml b.xml c.xml 2>err");
    EXPECT_EQ(output, "a Verb\nb_c Verb\n\ng Verb\n\ng Verb\n\nh Verb\n\n");
    EXPECT_EQ(status, 1);
    EXPECT_EQ(
        shell("tr -d ' \\n' <r.json").first, // every count
        R"({"files":{"entities_refused":1,"failed":2,"read":1},)"
        R"("left_out":{"breaks_line":0,"no_analysis":1,"no_tag":1,"not_json":1,"other_json":1,"outside_sentence":1,)"
        R"("unknown_id":1},"lexicon":{"comments":1,"duplicates":1,"lines":4,"short":1},)"
        R"("sentences":{"written":4},"status":1,"tokens":{"replaced":1,"written":5}})");
    const std::string messages = m_directory.read("err");
    for (const char* const message :
         {"lexicon:2: 1 fields", "a.xml:2: in no finished sentence: ,\n", "a.xml:3: no analysis: no\n",
          "a.xml:3: id not in the lexicon: d (99)\n", "tei2crf: b.xml: external entity not read", "c.xml: No such file",
          "tokens: 5 written, 1 of them", "left out: 1 no analysis, 1 analysis is no JSON"})
        EXPECT_NE(messages.find(message), messages.npos) << message << " in\n" << messages;
}

TEST_F(Tei2crf, CommandLine) {
    m_directory.write("a.xml", "<s>" + word("amat") + "<c>,</c>" + word("b c") + "</s>");
    m_directory.write("bad.xml", "<s><w lemma='xnox'>e</w></s>");
    m_directory.write("old", "old");
    m_directory.write("entity.ent", "<c>.</c>");
    m_directory.write("entity.xml", "<!DOCTYPE s [<!ENTITY e SYSTEM 'entity.ent'>]><s>&e;<c>,</c></s>");
    const std::string lines = "amat Verb\n, $,\n\n", version = ZELVOR_VERSION;
    const struct {
        std::string command, output;
        int status;
    } rows[] = {
        {"$T a.xml", lines, 0},
        {"$T - <a.xml", lines, 0},
        {"$T ./a.xml a.xml a.xml", lines + lines, 0}, // each path once
        {"mkfifo p; cat a.xml >p & $T p", lines, 0},
        {"$T --columns lemma,pos,form --separator=tab a.xml", "l\tVerb\tamat\n,\t$,\t,\n\n", 0},
        {"$T --columns=form a.xml --on-bad-token replace", "amat\n,\nb_c\n\n", 0},
        {"$T -o new --on-bad-token fail a.xml 2>err; echo $?; grep -c 'a.xml:1: .*b c' err; ls -A | grep new", "1\n1\n",
         1},
        {"$T -o old a.xml && cat old", lines, 0},
        {"ln -s old link; $T -o link a.xml && readlink link", "old\n", 0},
        {"umask 027; $T -o mode a.xml; chmod 604 old; $T -o old a.xml; stat -c %a mode old", "640\n604\n", 0},
        {"$T -o old missing 2>&1 | tail -1; wc -l <old", "tei2crf: stopped: nothing could be read\n3\n", 0},
        {"$T - </ 2>&1 | grep -c '^tei2crf: standard input: Is a directory'", "1\n", 0},
        {"$T -o /dev/stdout a.xml | cat", lines, 0},
        {"{ echo head; $T -o /dev/fd/1 a.xml; } >group; cat group", "head\n" + lines, 0},
        {"ln -s new dangling; $T -o dangling a.xml; readlink dangling; wc -l <new; rm new", "new\n3\n", 0},
        {"$T -o same --report ./same a.xml 2>&1", "tei2crf: one file for output and report: ./same\n", 2},
        {"$T a.xml >>a.xml 2>/dev/null; echo $?", "2\n", 0},
        {"$T entity.xml", ". $.\n, $,\n\n", 0},
        {"mkdir 's p#'; cp entity.* 's p#'; cd 's p#'; mkdir d; cd d; echo '<c>;</c>' >entity.ent; $T -l ../../lexicon "
         "../entity.xml",
         ". $.\n, $,\n\n", 0}, // not the one of the working directory
        {"ln -s ../entity.xml 's p#/link.xml'; rm 's p#/entity.ent'; $T 's p#/link.xml' 2>&1 | head -1 | cut -c 1-50",
         "tei2crf: s p#/link.xml: external entity not read, \n", 0},
        {"$T - <entity.xml 2>/dev/null", ", $,\n\n", 1},
        {"$T bad.xml a.xml", lines + "\n", 1},
        {"$T --strict bad.xml a.xml 2>/dev/null", lines, 1}, // what came before the fault
        {"$T --strict -o new bad.xml a.xml 2>&1; ls | grep new",
         "tei2crf: stopped: bad.xml:1: analysis is no JSON: e\n", 1},
        {"$T --strict - <entity.xml 2>&1 | tail -1", "tei2crf: stopped: at the fault of standard input\n", 0},
        {"echo short >short; $P -qq -l short a.xml 2>&1",
         "tei2crf: short:1: 1 fields, at least 22 are needed\n, $,\n\n", 1},
        {"$P -qq --strict -l short a.xml 2>/dev/null", "", 1},
        {"$P -q -l lexicon a.xml 2>&1 >/dev/null | grep -c '^tokens: 2 written'", "1\n", 0},
        {"$T missing a.xml 2>/dev/null", lines, 1},
        {"$P -q a.xml -l missing 2>&1 | head -1", "tei2crf: missing: No such file or directory\n", 0},
        {"mkdir none; $P -q -l lexicon -o old none 2>&1 | head -1",
         "tei2crf: stopped: no file whose name ends in .tei or .xml\n", 0},
        {"echo '<t/>' | $P -q -l lexicon - 2>&1 | head -1 | cut -c 1-33", "tei2crf: no sentence in any file;\n", 0},
        {"echo '<s/>' | $P -q -l lexicon - 2>&1 | grep -c 'no sentence'; echo '<t/>' | $T - 2>&1", "0\n", 0},
        {"$T a.xml -o no/such 2>&1", "tei2crf: no/such: No such file or directory\n", 1},
        {"$T a.xml -o lexicon 2>&1", "tei2crf: the output would replace an input: lexicon\n", 2},
        {"$P a.xml 2>&1 | head -1", "tei2crf: no lexicon: option -l is missing\n", 0},
        {"$P -l lexicon 2>/dev/null", "", 2},
        {"$T --no-such a.xml 2>/dev/null", "", 2},
        {"$T --separator=';' a.xml 2>&1 | grep -c usage", "1\n", 0},
        {"$T --columns form,form a.xml 2>&1 | head -1", "tei2crf: wrong value of --columns: 'form,form'\n", 0},
        {"$P --version", "tei2crf (zelvor) " + version + "\n", 0},
        {"$P --help | head -1", "usage: tei2crf -l LEXICON [-o OUT] [OPTION]... INPUT...\n", 0},
        {"$P --help >/dev/full 2>/dev/null", "", 1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(shell(row.command), std::pair(row.output, row.status)) << row.command;
}

TEST_F(Tei2crf, ReadsFoldersInTheOrderOfPaths) {
    for (const char* const name : {"b.xml", "a/z.tei", "a-b/x.xml", ".hidden.xml", ".h/y.xml", "c.XML", "d.txt"})
        m_directory.write(std::string("corpus/") + name, "<s>" + word(name) + "</s>");
    m_directory.write("outside/o.xml", "<s>" + word("outside") + "</s>");
    std::filesystem::create_directory_symlink("../outside", m_directory.path("corpus/folder-link"));
    std::filesystem::create_symlink("../outside/o.xml", m_directory.path("corpus/link.xml"));
    ASSERT_EQ(mkfifo(m_directory.path("corpus/pipe.xml").c_str(), 0600), 0);
    const std::string files = "a-b/x.xml\na/z.tei\nb.xml\noutside\n";
    const std::string columns = "$T --columns form ", squeeze = " | grep .";
    EXPECT_EQ(shell(columns + "corpus//" + squeeze).first, files);
    EXPECT_EQ(shell(columns + "--hidden corpus" + squeeze).first, ".h/y.xml\n.hidden.xml\n" + files);
    EXPECT_EQ(shell(columns + "corpus/folder-link corpus/d.txt" + squeeze).first, "d.txt\noutside\n");
    std::filesystem::create_symlink("nowhere", m_directory.path("corpus/dangling.xml"));
    EXPECT_EQ(shell("$T corpus 2>&1 >/dev/null"),
              std::pair(std::string("tei2crf: corpus/dangling.xml: No such file or directory\n"), 1));
}

TEST_F(Tei2crf, ALongRunTellsItsProgressToATerminalOnly) {
    m_directory.write("a.xml", "<s>" + word("amat") + "</s>");
    const std::string run =
        "mkfifo p; { echo '<t>'; for i in 1 2 3 4; do cat a.xml; sleep 0.2; done; echo '</t>'; } >p & "
        "script -qec \"$P -l lexicon ";
    EXPECT_EQ(shell(run + "-o out p\" /dev/null | grep -c 'file 1 of 1'; rm p").first, "1\n");
    EXPECT_EQ(shell(run + "-q -o out p\" /dev/null | grep -c 'file 1 of 1'; rm p").first, "0\n");
    EXPECT_EQ(shell(run + "p\" /dev/null | grep -c 'file 1 of 1'").first, "0\n"); // where the lines go to it, too
}

TEST_F(Tei2crf, AnEndlessTokenTakesNoMemory) {
    std::string form;
    for (int i = 0; i < 5000; ++i)
        form += "&e;";
    m_directory.write("a.xml", "<!DOCTYPE s [<!ENTITY e '" + std::string(100'000, 'a') + "'>]><s>" + word(form) +
                                   word("amat") + "</s>");
    EXPECT_EQ(shell("$P -l lexicon a.xml 2>err; grep -c ' 1 breaks its line' err").first, "amat Verb\n\n1\n");
}

} // namespace
} // namespace zelvor
