#include "tools/TaggerFormatConverter.h"
#include "training/CrfTrainingTeiSaxParser.h"

#include "tests/testing.h"

#include <iostream>

#include <sys/stat.h>

namespace zelvor {

std::string word(const std::string& text, const std::string& id) {
    return "<w lemma=\"x{'ls':[{'name':'l','wfs':[{'id':" + id + "}]}]}x\">" + text + "</w>";
}

struct Converter : testing::Test {
    /// Converts what is at `input` and returns standard output.
    std::string convert(const std::string& input, const std::string& lexicon = "") {
        return output_of([&] { TaggerFormatConverter().convert_format({input, directory.path("out"), lexicon}); });
    }

    /// The progress lines of one TEI file around its token lines.
    std::string report(const std::string& file, const std::string& tokens) const {
        const std::string name = directory.path(file) + "\n";
        return "input filename: " + name + "input filename 2 : " + name + "input filename 3 : " + name + tokens;
    }

    Converter() { TaggerFormatConverter::m_main_cat.addAppender(appender); }
    ~Converter() override { TaggerFormatConverter::m_main_cat.removeAppender(appender); }

    TemporaryDirectory directory;
    std::ostringstream log;
    log4cpp::Appender* appender = new log4cpp::OstreamAppender("what is told", &log);
};

TEST_F(Converter, WritesTokensAndSeparators) {
    const auto line = [](const std::string& id, const std::string& pos) {
        return "0#s#sp#3#l#src#NN#" + id + "#w#9#10#11#12#13#14#15#16#" + pos + "#18#19#20#21\n";
    };
    const std::string lexicon =
        directory.write("lexicon", "// " + line("17", "Comment") + line("17", "Verb") + line("17", "Later") +
                                       line("18", "Noun") + line("none", "Zero") + "1#2#3#4#5#6#7#19#short\n\n");
    const std::string file =
        directory.write("a.xml", "<t><s>" + word("amat", "17") + word("rosa", "18") + word("x", "0") + word("y", "19") +
                                     word("z", "99") + "<c>;</c></s><s/><s><c>.</c></s></t>");
    // The short line is stored under its id, without a part of speech.
    EXPECT_EQ(convert(file, lexicon), report("a.xml", "amat Verb\nrosa NN\nx Zero\ny \n. $.\n"));
    EXPECT_EQ(directory.read("out"), "\n\n\n");
    EXPECT_THAT(log.str(),
                testing::HasSubstr(lexicon + ":6: a lexicon line needs at least 22 fields: 1#2#3#4#5#6#7#19#s"));
}

TEST_F(Converter, FetchesTheTagBeforeTheForm) {
    struct Entry : LexicalEntry {
        std::string get_word_form() const override {
            const_cast<Entry*>(this)->set_pos("late");
            return "form";
        }
    } entry;
    struct Reader : CrfTrainingTeiSaxParser {
        Reader() : CrfTrainingTeiSaxParser(nullptr, nullptr) {}
        void on_end_document() override { get_entry_representations()->push_back(&sentence); }
        std::vector<LexicalEntry*> sentence;
    } reader;
    entry.set_pos("early");
    reader.sentence.push_back(&entry);
    const std::string file = directory.write("a.xml", "<t/>");
    std::ostringstream out;
    EXPECT_EQ(output_of([&] { TaggerFormatConverter().create_model_data_file(file, out, reader); }),
              report("a.xml", "form early\n"));
}

TEST_F(Converter, ReadsEntitiesFromTheDocumentsFolderOnly) {
    const std::string inside = directory.write("corpus/parts/in.ent", "<c>,</c>");
    const std::string secret = directory.write("secret.ent", "<c>(</c>");
    ASSERT_EQ(mkfifo(directory.path("corpus/pipe.ent").c_str(), 0600), 0);
    std::filesystem::create_symlink(secret, directory.path("corpus/link.ent"));
    using Row = std::pair<std::string, std::string>;
    for (const auto& [address, tokens] :
         {Row("parts/i%6E.ent", ", $,\n"), Row(inside, ", $,\n"), Row("file://" + inside, ", $,\n"),
          Row("../secret.ent", ""), Row("link.ent", ""), Row(secret, ""), Row("pipe.ent", ""), Row("/dev/zero", ""),
          Row("http://127.0.0.1:9/x.ent", ""), Row("missing.ent", ""), Row("parts", "")}) {
        const std::string file = directory.write("corpus/a.xml", "<!DOCTYPE s [<!ENTITY e SYSTEM \"" + address +
                                                                     "\"><!ENTITY i 'x'>]><s>&e;<c>.</c></s>");
        EXPECT_EQ(convert(file), report("corpus/a.xml", tokens + ". $.\n")) << address;
    }
}

TEST_F(Converter, LogsWhyADocumentFailedAndWhatWasLostInWriting) {
    const std::string file = directory.write("a.xml", "<s><c>,</c></s>"),
                      bad = directory.write("bad.xml", "<s><x></s>");
    convert(bad);
    convert(directory.path("missing.xml"));
    for (const char* const out : {"/dev/full", "/no/such/out", "/dev/null"}) // one that cannot be opened is not told
        TaggerFormatConverter().convert_format({file, out, ""});
    std::cout.setstate(std::ios::badbit); // as after a failed write
    TaggerFormatConverter().convert_format({file, directory.path("out"), ""});
    std::cout.clear();
    EXPECT_THAT(log.str(), testing::HasSubstr(" ERROR TAGGER_FORMAT_CONVERTER : Error occurred during parsing! \n"));
    EXPECT_THAT(log.str(),
                testing::HasSubstr(" ERROR TAGGER_FORMAT_CONVERTER : " + bad + ": Document not well-formed.\n"));
    EXPECT_THAT(log.str(),
                testing::ContainsRegex("missing.xml: No such file or directory\n[^\n]*: /dev/full: lines are lost\n"
                                       "[^\n]*: standard output: lines are lost\n$"));
    EXPECT_EQ(directory.read("out"), "\n");
}

} // namespace zelvor
