#include "training/CrfTrainingTeiSaxParser.h"

#include "tests/testing.h"

namespace zelvor {

/// Parses documents and gives their sentences as "form lemma pos;...|..." text, everything that was read freed.
class TeiReader : public testing::Test {
protected:
    TeiReader() {
        verb.set_lemma_pos("V");
        noun.set_lemma_pos("NN");
        parser.set_substitute_entities(true);
    }

    /// The sentences of a document, and of a faulty one those before the fault.
    std::string parse(const std::string& document) {
        EXPECT_TRUE(parser.get_entry_representations()->empty());
        try {
            parser.parse_memory(document);
        } catch (const std::exception&) { // every fault of a document ends in one
        }
        std::string text;
        for (auto* const sentence : *parser.get_entry_representations()) {
            for (const LexicalEntry* const entry : *sentence) {
                text += entry->get_word_form() + ' ' + entry->get_lemma() + ' ' + entry->get_pos() + ';';
                delete entry;
            }
            sentence->clear();
            text += '|';
        }
        parser.clear_lexical_entries();
        return text;
    }

    static std::string word(const std::string& text,
                            const std::string& lemma = "x{'ls':[{'name':'amo','wfs':[{'id':17}]}]}x") {
        return "<w lemma=\"" + lemma + "\">" + text + "</w>";
    }

    LexicalEntry verb{"x", "x", "Verb"}, noun{"x", "x", "Noun"}, zero{"x", "x", "Zero"};
    std::map<int, LexicalEntry*> lexicon{{17, &verb}, {18, &noun}, {0, &zero}, {19, nullptr}};
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
          Row("<c>;</c><c>, </c><c/><c type='$,'>!</c><C>,</C><tei:c>,</tei:c><c><![CDATA[,]]></c><c>''</c>", ""),
          Row(word("-que", "x{'ls':[{'name':'que','wfs':[{'id':17}]}]}x"), "queque que Verb;"),
          Row("<pc>,</pc><w tei:lemma='x{}x'>a</w>", ""),
          Row(word("a<!-- b --><?c d?><lb/><choice><sic>e</sic><corr>f</corr></choice>"), "aef amo Verb;"),
          Row(word("<![CDATA[a]]>") + word("a\r\nb&#13;"), " amo Verb;a\nb\r amo Verb;"),
          Row(word("a", "x{'ls':[{'name':'l\\'a\\u0027','wfs':[{'id':17}]}]}x"), "a l\"a' Verb;"),
          Row(word("a", "x{'ls':[{'wfs':[]},{'wfs':[{'id':17}]}]}x") + word("a", "{'ls':[{'wfs':[{'id':17}]}]}"), ""),
          Row("between " + word("a", "x[]x") + " tokens " + word("b"), "b amo Verb;")})
        EXPECT_EQ(parse("<t xmlns:tei='t'><s>" + tokens + "</s></t>"), expected + "|") << tokens;
}

TEST_F(TeiReader, ParseFailuresAreReportedAndLeaveTheTokenOpen) {
    // The text after a failed token is gathered until the next token begins, or an outer one ends. A nested token ends
    // twice: at the outer end, its analysis "a" (already unwrapped) is unwrapped once more.
    const std::string deep = std::string(1500, '[') + std::string(1500, ']');
    using Row = std::tuple<std::string, const char*, std::string>;
    for (const auto& [tokens, expected, failures] :
         {Row(word("a", "amo") + "gathered" + word("b") + word("c", "amo") + word("d", "xx"), "b amo Verb;|",
              "Failed to parse m\nFailed to parse m\nFailed to parse \n"),
          Row("<c>" + word(",", "amo") + "</c><c>" + word("", "amo") + ".</c>", ", , $,;. . $.;|",
              "Failed to parse m\nFailed to parse m\n"),
          Row("<w lemma='x'>out" + word("in", "x'a'x") + "er</w><c>,</c>", ", , $,;|", "Failed to parse a\n"),
          Row(word("a", "x" + deep + "x") + word("b"), "b amo Verb;|", "Failed to parse " + deep + "\n")}) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(parse("<s>" + tokens + "</s>"), expected);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), failures);
    }
}

TEST_F(TeiReader, Sentences) {
    // The inner one of nested sentences ends twice; one that never ends is no sentence.
    using Row = std::pair<std::string, std::string>;
    for (const auto& [document, expected] :
         {Row("<t><s/><s></s></t>", "||"), Row("<t>" + word("a") + "<c>,</c></t>", ""),
          Row("<t><s>" + word("a") + "</s><c>,</c><s><c>.</c></s></t>", "a amo Verb;, , $,;|. . $.;|"),
          Row("<s><s>" + word("a") + "</s></s>", "a amo Verb;||"),
          Row("<t><s>" + word("a") + "</s><s><w></s></t>", "a amo Verb;|"),
          Row("<t><c>,</c><s><c>(</c><s>" + word("a") + "</s>" + word("b") + "</s></t>", "a amo Verb;b amo Verb;||"),
          Row("<t><s>" + word("a") + "</s><s>" + word("&undeclared;") + "</s></t>", "a amo Verb;|"),
          Row("<?xml version='1.0' encoding='windows-1252'?><s>" + word("\xe9\x9c") + "</s>",
              "\u00e9\u0153 amo Verb;|"),
          Row("\xef\xbb\xbf<t><s/><s>" + word("\xe9") + "</s></t>", "|")})
        EXPECT_EQ(parse(document), expected) << document;
}

TEST_F(TeiReader, EveryTruncationKeepsTheSentencesBeforeIt) {
    const std::string first = "<t><s>" + word("a") + "</s>", both = first + "<s>" + word("b") + "</s>";
    testing::internal::CaptureStderr();
    for (std::size_t length = 0; length <= both.size() + 4; ++length) {
        const std::size_t known = length < first.size() ? 0 : length < both.size() ? 12 : 24;
        EXPECT_EQ(parse((both + "</t>").substr(0, length)), std::string("a amo Verb;|b amo Verb;|", known));
    }
    testing::internal::GetCapturedStderr();
}

TEST_F(TeiReader, ANewDocumentStartsWithoutTheOldSentences) {
    const std::string entity = "<!DOCTYPE s [<!ENTITY e '";
    EXPECT_EQ(parse(entity + "one'>]><s>" + word("&e;") + "</s>"), "one amo Verb;|");
    EXPECT_EQ(parse(entity + "two'>]><s>" + word("&e;") + "</s>"), "two amo Verb;|");
    parser.on_end_element("s"); // of a sentence that never began
    EXPECT_EQ(*parser.get_entry_representations(), std::vector<std::vector<LexicalEntry*>*>{nullptr});
    parser.clear_lexical_entries();
    parser.parse_memory("<s/>");
    const std::unique_ptr<std::vector<LexicalEntry*>> dropped(parser.get_entry_representations()->front());
    parser.parse_memory("<s/>"); // the document before is dropped, not freed
    EXPECT_EQ(parser.get_entry_representations()->size(), 1U);
    parser.clear_lexical_entries();
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

} // namespace zelvor
