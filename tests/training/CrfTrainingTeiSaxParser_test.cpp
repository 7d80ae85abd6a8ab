#include "training/CrfTrainingTeiSaxParser.h"

#include <gtest/gtest.h>
#include <log4cpp/BasicLayout.hh>
#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>

#include <memory>
#include <sstream>

namespace zelvor {
namespace {

/// Parses documents and gives their sentences as "form lemma pos;...|..." text, everything that was read freed.
class TeiReader : public testing::Test {
protected:
    TeiReader() {
        for (const auto& [id, pos, lemma_pos] :
             {std::tuple{17, "Verb", "V"}, std::tuple{18, "Noun", "NN"}, std::tuple{0, "Zero", ""}}) {
            entries.push_back(std::make_unique<LexicalEntry>("x", "x", pos));
            entries.back()->set_lemma_pos(lemma_pos);
            lexicon[id] = entries.back().get();
        }
        lexicon[19] = nullptr;
        parser.set_substitute_entities(true);
    }

    ~TeiReader() override {
        std::string ignored;
        sentences();
        parser.clear_lexical_entries();
    }

    void parse(const std::string& document) {
        try {
            parser.parse_memory(document);
        } catch (const std::exception&) { // every fault of a document ends in one
        }
    }

    std::string sentences() {
        std::string text;
        for (auto* const sentence : *parser.get_entry_representations()) {
            for (LexicalEntry* const entry : sentence ? *sentence : std::vector<LexicalEntry*>()) {
                text += entry->get_word_form() + ' ' + entry->get_lemma() + ' ' + entry->get_pos() + ';';
                owned.emplace_back(entry);
            }
            if (sentence)
                sentence->clear();
            text += sentence ? "|" : "null|";
        }
        return text;
    }

    static std::string word(const std::string& text,
                            const std::string& lemma = "x{'ls':[{'name':'amo','wfs':[{'id':17}]}]}x") {
        return "<w lemma=\"" + lemma + "\">" + text + "</w>";
    }

    std::vector<std::unique_ptr<LexicalEntry>> entries, owned;
    std::map<int, LexicalEntry*> lexicon;
    CrfTrainingTeiSaxParser parser{nullptr, &lexicon};
};

TEST_F(TeiReader, ReadsTokens) {
    const struct {
        std::string tokens, expected;
    } rows[] = {
        {word("amat"), "amat amo Verb;"},
        {word("rosa", "x{'ls':[{'name':'rosa','wfs':[{'id':18},{'id':17}]},{'name':'b'}]}x"), "rosa rosa NN;"},
        {word("a", "{{'ls':[{'wfs':[{'id':17}]}]}}"), "a  Verb;"},             // no name, other wrappers
        {word("a", "x{'ls':[{'name':5,'wfs':[{'id':17.9}]}]}x"), "a 5 Verb;"}, // conversions of the JSON library
        {word("a", "x{'ls':[{'name':'n','wfs':[{'id':false}]}]}x"), "a n Zero;"},
        {word("<hi>a</hi>m&amp;&#x61;t"), "am&at amo Verb;"},
        {"<w>amat</w><w lemma=''>b</w><w lemma='x'>c</w>", ""},
        {word("a", "x{'ls':[{'name':'n','wfs':[{'id':99}]}]}x"), ""},
        {word("a", "x{'ls':[{'name':'n','wfs':[{'id':19}]}]}x"), ""},
        {"<c>,</c><c>.</c><c>(</c><c>)</c><c>[</c><c>]</c><c>\"</c><c>'</c>",
         ", , $,;. . $.;( ( $(;) ) $(;[ [ $(;] ] $(;\" \" $(;' ' $(;"},
        {"<c>;</c><c>, </c><c/><c type='$,'>!</c><C>,</C><tei:c>,</tei:c><c><![CDATA[,]]></c>", ""},
        {word("-que", "x{'ls':[{'name':'que','wfs':[{'id':17}]}]}x"), "queque que Verb;"}, // "-": abbreviated
        {"between " + word("a") + " tokens " + word("b"), "a amo Verb;b amo Verb;"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.tokens);
        parse("<t xmlns:tei='t'><s>" + row.tokens + "</s></t>");
        EXPECT_EQ(sentences(), row.expected + "|");
    }
}

TEST_F(TeiReader, JsonOfAnyShapeCostsItsOwnTokenOnly) {
    const char* const shapes[] = {"1",
                                  "'a'",
                                  "true",
                                  "null",
                                  "[]",
                                  "{}",
                                  "{'ls':1}",
                                  "{'ls':{}}",
                                  "{'ls':[]}",
                                  "{'ls':[1]}",
                                  "{'ls':[null]}",
                                  "{'ls':[{'wfs':1}]}",
                                  "{'ls':[{'wfs':[]}]}",
                                  "{'ls':[{'wfs':['a']}]}",
                                  "{'ls':[{'wfs':[{'id':null}]}]}",
                                  "{'ls':[{'wfs':[{'id':'17'}]}]}",
                                  "{'ls':[{'wfs':[{'id':[]}]}]}",
                                  "{'ls':[{'wfs':[{'id':3e10}]}]}",
                                  "{'ls':[{'name':{},'wfs':[{'id':17}]}]}"};
    for (const char* const shape : shapes) {
        SCOPED_TRACE(shape);
        testing::internal::CaptureStderr();
        parse("<s>" + word("a", std::string("x") + shape + "x") + word("b") + "</s>");
        EXPECT_EQ(sentences(), "b amo Verb;|");
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    }
}

TEST_F(TeiReader, ParseFailuresAreReportedAndLeaveTheTokenOpen) {
    testing::internal::CaptureStderr();
    // The text after the failed token is gathered until the next token begins; both failures are reported.
    parse("<s>" + word("a", "amo") + "gathered" + word("b") + word("c", "amo") + word("d", "xx") + "</s>");
    EXPECT_EQ(sentences(), "b amo Verb;|");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to parse m\nFailed to parse m\nFailed to parse \n");
    testing::internal::CaptureStderr();
    parse("<s>" + word("a", "x" + std::string(1500, '[') + std::string(1500, ']') + "x") + word("b") + "</s>");
    EXPECT_EQ(sentences(), "b amo Verb;|");
    EXPECT_EQ(testing::internal::GetCapturedStderr().substr(0, 20), "Failed to parse [[[[");
}

TEST_F(TeiReader, ANestedTokenEndsTwice) {
    testing::internal::CaptureStderr();
    parse("<s><w lemma='x'>out" + word("in", "x'a'x") + "er</w><c>,</c></s>");
    EXPECT_EQ(sentences(), ", , $,;|");
    // At the outer end, the inner analysis "a" (already unwrapped) is unwrapped once more.
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to parse a\n");
}

TEST_F(TeiReader, Sentences) {
    const struct {
        std::string document, expected;
    } rows[] = {
        {"<t><s/><s></s></t>", "||"},
        {"<t><s>" + word("a") + "</s><c>,</c><s><c>.</c></s></t>", "a amo Verb;, , $,;|. . $.;|"},
        {"<s><s>" + word("a") + "</s></s>", "a amo Verb;||"}, // the inner sentence ends twice
        {"<s>" + word("a") + "</s", ""},                      // one that never ends is no sentence
        {"<t><s>" + word("a") + "</s><s><w></s></t>", "a amo Verb;|"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.document);
        parse(row.document);
        EXPECT_EQ(sentences(), row.expected);
        parser.clear_lexical_entries();
    }
}

TEST_F(TeiReader, EveryTruncationKeepsTheSentencesBeforeIt) {
    const std::string first = "<t><s>" + word("a") + "</s>", document = first + "<s>" + word("b") + "</s></t>";
    testing::internal::CaptureStderr();
    for (std::size_t length = 0; length <= document.size(); ++length) {
        SCOPED_TRACE(length);
        parser.get_entry_representations()->clear();
        parse(document.substr(0, length));
        const std::string text = sentences();
        const std::size_t last = document.size() - std::string("</t>").size();
        EXPECT_EQ(text, length < first.size() ? "" : length < last ? "a amo Verb;|" : "a amo Verb;|b amo Verb;|");
        parser.clear_lexical_entries();
    }
    testing::internal::GetCapturedStderr();
}

TEST_F(TeiReader, ANewDocumentStartsWithoutTheOldSentences) {
    const std::string entity = "<!DOCTYPE s [<!ENTITY e '";
    parse(entity + "one'>]><s>" + word("&e;") + "</s>");
    EXPECT_EQ(sentences(), "one amo Verb;|");
    auto* const dropped = parser.get_entry_representations()->front(); // dropped, not freed, by the next document
    parse(entity + "two'>]><s>" + word("&e;") + "</s>");
    EXPECT_EQ(sentences(), "two amo Verb;|");
    delete dropped;
}

TEST_F(TeiReader, EndOfASentenceThatNeverBeganAndFreeing) {
    parser.on_end_element("s");
    EXPECT_EQ(sentences(), "null|");
    parser.clear_lexical_entries();
    EXPECT_TRUE(parser.get_entry_representations()->empty());
    parse("<t>" + word("a") + "<c>,</c></t>"); // outside any sentence
    EXPECT_EQ(sentences(), "");
}

TEST_F(TeiReader, NoLexiconAtAll) {
    CrfTrainingTeiSaxParser bare(nullptr, nullptr);
    bare.parse_memory("<s>" + word("a") + "</s>");
    EXPECT_TRUE(bare.get_entry_representations()->at(0)->empty());
    bare.on_error("silent");
    bare.on_fatal_error("silent");
    bare.clear_lexical_entries();
}

TEST(TeiReaderLog, ErrorsAreTwoRecordsEach) {
    std::ostringstream log;
    log4cpp::Category& category = log4cpp::Category::getInstance("TEI_READER_TEST");
    category.setAdditivity(false);
    category.setAppender(new log4cpp::OstreamAppender("log", &log));
    category.setPriority(log4cpp::Priority::INFO);
    CrfTrainingTeiSaxParser parser(&category, nullptr);
    parser.on_fatal_error("%n deep");
    EXPECT_THROW(parser.parse_memory("<s></t>"), std::exception);
    category.removeAllAppenders();
    const std::string text = log.str();
    EXPECT_NE(text.find("FATAL TEI_READER_TEST : Fatal error occurred during parsing! \n"), text.npos);
    EXPECT_NE(text.find("FATAL TEI_READER_TEST : %n deep\n"), text.npos);
    EXPECT_NE(text.find("ERROR TEI_READER_TEST : Error occurred during parsing! \n"), text.npos);
    EXPECT_NE(text.find("mismatch"), text.npos);
}

} // namespace
} // namespace zelvor
