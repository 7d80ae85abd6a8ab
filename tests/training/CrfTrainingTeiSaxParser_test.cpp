#include "training/CrfTrainingTeiSaxParser.h"

#include "tests/captured_log.h"

#include <gtest/gtest.h>

#include <memory>

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
    // In turn: no name, other wrappers; conversions of the JSON library; ...; "-que" is abbreviated.
    using Row = std::pair<std::string, std::string>;
    for (const auto& [tokens, expected] :
         {Row(word("amat"), "amat amo Verb;"),
          Row(word("rosa", "x{'ls':[{'name':'rosa','wfs':[{'id':18},{'id':17}]},{'name':'b'}]}x"), "rosa rosa NN;"),
          Row(word("a", "{{'ls':[{'wfs':[{'id':17}]}]}}"), "a  Verb;"),
          Row(word("a", "x{'ls':[{'name':5,'wfs':[{'id':17.9}]}]}x"), "a 5 Verb;"),
          Row(word("a", "x{'ls':[{'name':'n','wfs':[{'id':false}]}]}x"), "a n Zero;"),
          Row(word("<hi>a</hi>m&amp;&#x61;t"), "am&at amo Verb;"),
          Row("<w>amat</w><w lemma=''>b</w><w lemma='x'>c</w>", ""),
          Row(word("a", "x{'ls':[{'name':'n','wfs':[{'id':99}]}]}x"), ""),
          Row(word("a", "x{'ls':[{'name':'n','wfs':[{'id':19}]}]}x"), ""),
          Row("<c>,</c><c>.</c><c>(</c><c>)</c><c>[</c><c>]</c><c>\"</c><c>'</c>",
              ", , $,;. . $.;( ( $(;) ) $(;[ [ $(;] ] $(;\" \" $(;' ' $(;"),
          Row("<c>;</c><c>, </c><c/><c type='$,'>!</c><C>,</C><tei:c>,</tei:c><c><![CDATA[,]]></c>", ""),
          Row(word("-que", "x{'ls':[{'name':'que','wfs':[{'id':17}]}]}x"), "queque que Verb;"),
          Row("<pc>,</pc><c>''</c><C>.</C><x:c>.</x:c><w x:lemma='x{}x'>a</w>", ""),
          Row(word("a<!-- b --><?c d?><lb/><choice><sic>e</sic><corr>f</corr></choice>"), "aef amo Verb;"),
          Row(word("<![CDATA[a]]>") + word("a\r\nb&#13;"), " amo Verb;a\nb\r amo Verb;"),
          Row(word("a", "x{'ls':[{'name':'l\\'a\\u0027','wfs':[{'id':17}]}]}x"), "a l\"a' Verb;"),
          Row(word("a", "x{'ls':[{'wfs':[]},{'wfs':[{'id':17}]}]}x") + word("a", "{'ls':[{'wfs':[{'id':17}]}]}"), ""),
          Row("between " + word("a") + " tokens " + word("b"), "a amo Verb;b amo Verb;")}) {
        SCOPED_TRACE(tokens);
        parse("<t xmlns:tei='t' xmlns:x='x'><s>" + tokens + "</s></t>");
        EXPECT_EQ(sentences(), expected + "|");
    }
}

TEST_F(TeiReader, JsonOfAnyShapeCostsItsOwnTokenOnly) {
    testing::internal::CaptureStderr();
    for (const char* const shape :
         {"1", "'a'", "true", "null", "[]", "{}", "{'ls':1}", "{'ls':{}}", "{'ls':[]}", "{'ls':[1]}", "{'ls':[null]}",
          "{'ls':[{'wfs':1}]}", "{'ls':[{'wfs':[]}]}", "{'ls':[{'wfs':['a']}]}", "{'ls':[{'wfs':[{'id':null}]}]}",
          "{'ls':[{'wfs':[{'id':'17'}]}]}", "{'ls':[{'wfs':[{'id':[]}]}]}", "{'ls':[{'wfs':[{'id':3e10}]}]}",
          "{'ls':[{'name':{},'wfs':[{'id':17}]}]}"}) {
        parse("<s>" + word("a", std::string("x") + shape + "x") + word("b") + "</s>");
        EXPECT_EQ(sentences(), "b amo Verb;|") << shape;
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(TeiReader, ParseFailuresAreReportedAndLeaveTheTokenOpen) {
    testing::internal::CaptureStderr();
    // The text after the failed token is gathered until the next token begins; both failures are reported.
    parse("<s>" + word("a", "amo") + "gathered" + word("b") + word("c", "amo") + word("d", "xx") + "</s>");
    EXPECT_EQ(sentences(), "b amo Verb;|");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to parse m\nFailed to parse m\nFailed to parse \n");
    // What was gathered is still there at the end of an outer token.
    parse("<s><c>" + word(",", "amo") + "</c><c>" + word("", "amo") + ".</c></s>");
    EXPECT_EQ(sentences(), ", , $,;. . $.;|");
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
    // The inner one of nested sentences ends twice; one that never ends is no sentence.
    using Row = std::pair<std::string, std::string>;
    for (const auto& [document, expected] :
         {Row("<t><s/><s></s></t>", "||"),
          Row("<t><s>" + word("a") + "</s><c>,</c><s><c>.</c></s></t>", "a amo Verb;, , $,;|. . $.;|"),
          Row("<s><s>" + word("a") + "</s></s>", "a amo Verb;||"), Row("<s>" + word("a") + "</s", ""),
          Row("<t><s>" + word("a") + "</s><s><w></s></t>", "a amo Verb;|"),
          Row("<t><c>,</c><s><c>(</c><s>" + word("a") + "</s>" + word("b") + "</s></t>", "a amo Verb;b amo Verb;||"),
          Row("<t><s>" + word("a") + "</s><s>" + word("&undeclared;") + "</s></t>", "a amo Verb;|"),
          Row("<?xml version='1.0' encoding='windows-1252'?><s>" + word("\xe9\x9c") + "</s>",
              "\u00e9\u0153 amo Verb;|"),
          Row("\xef\xbb\xbf<t><s/><s>" + word("\xe9") + "</s></t>", "|")}) {
        SCOPED_TRACE(document);
        parse(document);
        EXPECT_EQ(sentences(), expected);
        parser.clear_lexical_entries();
    }
}

TEST_F(TeiReader, EveryTruncationKeepsTheSentencesBeforeIt) {
    const std::string first = "<t><s>" + word("a") + "</s>", both = first + "<s>" + word("b") + "</s>";
    testing::internal::CaptureStderr();
    for (std::size_t length = 0; length <= both.size() + 4; ++length) {
        parse((both + "</t>").substr(0, length));
        EXPECT_EQ(sentences(), length < first.size()  ? ""
                               : length < both.size() ? "a amo Verb;|"
                                                      : "a amo Verb;|b amo Verb;|")
            << length;
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

TEST_F(TeiReader, ErrorsAreTwoRecordsEachAndTheLexiconMayBeMissing) {
    CapturedLog log;
    for (log4cpp::Category* const category : {&log.category, static_cast<log4cpp::Category*>(nullptr)}) {
        CrfTrainingTeiSaxParser bare(category, nullptr);
        bare.on_fatal_error("%n deep");
        EXPECT_THROW(bare.parse_memory("<s>" + word("a") + "</s></t>"), std::exception);
        EXPECT_TRUE(bare.get_entry_representations()->at(0)->empty());
        bare.clear_lexical_entries();
    }
    for (const char* const text :
         {"FATAL CAPTURED_LOG : Fatal error occurred during parsing! \n", "FATAL CAPTURED_LOG : %n deep\n",
          "ERROR CAPTURED_LOG : Error occurred during parsing! \n", "Extra content"})
        EXPECT_TRUE(log.has(text)) << log.records.str();
}

} // namespace
} // namespace zelvor
