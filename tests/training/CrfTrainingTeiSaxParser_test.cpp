// Both readers agree on the documents of fuzz/corpus/tei, and tests/tools/tei2crf.transcript says what the other
// writes.
#include "training/CrfTrainingTeiSaxParser.h"

#include "tests/testing.h"

namespace zelvor {

struct TeiReader : testing::Test {
    TeiReader() {
        verb.set_lemma_pos("V");
        noun.set_lemma_pos("NN");
        parser.set_substitute_entities(true);
    }

    /// The sentences of a document, and of a faulty one those before the fault, as "form lemma pos;...|..." text.
    std::string parse(const std::string& document) {
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
    // Conversions of the JSON library; "-que" is abbreviated; a mark in a mark ends it.
    using Row = std::pair<std::string, std::string>;
    for (const auto& [tokens, expected] :
         {Row(word("rosa", "x{'ls':[{'name':'rosa','wfs':[{'id':18},{'id':17}]},{'name':'b'}]}x"), "rosa rosa NN;"),
          Row(word("a", "{{'ls':[{'wfs':[{'id':17.9}]}]}}"), "a  Verb;"),
          Row(word("a", "x{'ls':[{'name':5,'wfs':[{'id':false}]}]}x"), "a 5 Zero;"),
          Row(word("a", "x{'ls':[{'wfs':[{'id':99}]}]}x") + word("a", "x{'ls':[{'wfs':[{'id':19}]}]}x"), ""),
          Row("<w>amat</w><w lemma=''>b</w><w lemma='x'>c</w>", ""),
          Row("<c>,</c><c>.</c><c>(</c><c>)</c><c>[</c><c>]</c><c>\"</c><c>'</c>",
              ", , $,;. . $.;( ( $(;) ) $(;[ [ $(;] ] $(;\" \" $(;' ' $(;"),
          Row("<c>;</c><c>, </c><c/><C>,</C><tei:c>,</tei:c><c><![CDATA[,]]></c><pc>,</pc>", ""),
          Row("<c>,<c>.</c></c><c>(</c>", ". . $.;( ( $(;"),
          Row("<c lemma=\"({'ls':[{'wfs':[{'id':17}]}]})\">;</c><w>a</w>", ""),
          Row(word("-que", "x{'ls':[{'name':'que','wfs':[{'id':17}]}]}x"), "queque que Verb;"),
          Row("between " + word("a<!-- b --><hi>&#x61;</hi>\r\n"), "aa\n amo Verb;")})
        EXPECT_EQ(parse("<t xmlns:tei='t'><s>" + tokens + "</s></t>"), expected + "|") << tokens;
}

TEST_F(TeiReader, ParseFailuresAreReportedAndLeaveTheTokenOpen) {
    // The text after a failed token is gathered until the next token begins, or an outer one ends. A nested token ends
    // twice: at the outer end, its analysis "a" (already unwrapped) is unwrapped once more.
    const std::string deep = std::string(1500, '[') + std::string(1500, ']');
    using Row = std::tuple<std::string, const char*, std::string>;
    for (const auto& [tokens, expected, failures] :
         {Row(word("a", "amo") + "gathered" + word("b") + word("d", "xx"), "b amo Verb;|",
              "Failed to parse m\nFailed to parse \n"),
          Row("<c>" + word(",", "amo") + "</c>", ", , $,;|", "Failed to parse m\n"),
          Row("<w lemma='x'>out" + word("in", "x'a'x") + "er</w><c>,</c>", ", , $,;|", "Failed to parse a\n"),
          Row(word("a", "x" + deep + "x") + word("b"), "b amo Verb;|", "Failed to parse " + deep + "\n")}) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(parse("<s>" + tokens + "</s>"), expected);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), failures);
    }
}

TEST_F(TeiReader, EveryTruncationKeepsTheSentencesBeforeIt) {
    const std::string first = "<t><s>" + word("a") + "</s>", both = first + "<s>" + word("b") + "</s>";
    for (std::size_t length = 0; length <= both.size() + 4; ++length) {
        const std::size_t known = length < first.size() ? 0 : length < both.size() ? 12 : 24;
        EXPECT_EQ(parse((both + "</t>").substr(0, length)), std::string("a amo Verb;|b amo Verb;|", known));
    }
}

TEST_F(TeiReader, SentencesOfWholeAndFaultyDocuments) {
    // The inner one of nested sentences ends twice; one that never ends is no sentence.
    using Row = std::pair<std::string, std::string>;
    for (const auto& [document, expected] :
         {Row("<t><c>,</c><s/><c>.</c><s>" + word("a") + "</s></t>", ". . $.;|a amo Verb;|"),
          Row("<s><s>" + word("a") + "</s></s>", "a amo Verb;||"), Row("<t><s/><s><w></s></t>", "|"),
          Row("<t><s/><s>" + word("&undeclared;") + "</s></t>", "|"),
          Row("<?xml version='1.0' encoding='windows-1252'?><s>" + word("\xe9\x9c") + "</s>",
              "\u00e9\u0153 amo Verb;|"),
          Row("<!DOCTYPE s [<!ENTITY e 'one'>]><s>" + word("&e;") + "</s>", "one amo Verb;|"),
          Row("<!DOCTYPE s [<!ENTITY e 'two'>]><s>" + word("&e;") + "</s>", "two amo Verb;|")})
        EXPECT_EQ(parse(document), expected) << document;
    parser.on_end_element("s"); // of a sentence that never began
    EXPECT_EQ(*parser.get_entry_representations(), std::vector<std::vector<LexicalEntry*>*>{nullptr});
    parser.clear_lexical_entries();
    parser.parse_memory("<s/>");
    const std::unique_ptr<std::vector<LexicalEntry*>> dropped(parser.get_entry_representations()->front());
    parser.parse_memory("<s/>"); // the document before is dropped, not freed
    EXPECT_EQ(parser.get_entry_representations()->size(), 1U);
    EXPECT_EQ(parse("<t><c>"), ""); // cut inside a token, which the next document does not go on with
    parser.on_start_document();
    parser.on_start_element("s", {});
    parser.on_characters(",");
    parser.on_end_element("c");
    parser.on_end_element("s");
    EXPECT_TRUE(parser.get_entry_representations()->at(0)->empty());
    parser.clear_lexical_entries();
}

TEST_F(TeiReader, FatalErrorsAreTwoRecordsAndTheLexiconMayBeMissing) {
    CapturedLog log;
    CrfTrainingTeiSaxParser bare(&log.category, nullptr);
    bare.on_fatal_error("%n deep");
    CrfTrainingTeiSaxParser(nullptr, nullptr).on_fatal_error("nobody is told");
    bare.parse_memory("<s>" + word("a") + "</s>");
    EXPECT_TRUE(bare.get_entry_representations()->at(0)->empty());
    bare.clear_lexical_entries();
    log.expect({"Fatal error occurred during parsing! ", "%n deep"});
}

} // namespace zelvor
