#include "utils/LexicalEntry.h"

#include <gtest/gtest.h>

#include <libxml++/libxml++.h>
#include <tuple>

namespace zelvor {
namespace {

TEST(TreebankWord, ReadsFormLemmaAndFirstTagLetter) {
    // The last byte of a lemma is cut: that is "t" of "et", and half of "é".
    using Row = std::tuple<const char*, const char*, const char*>; // attributes; word form, lemma and pos; output
    for (const auto& [attributes, expected, printed] :
         {Row("form='sum' lemma='sum1' postag='v1spia---'", "sum|sum|V", "pos: v\nmpos: V\n"),
          Row("form='et' lemma='et' postag='c--------'", "et|e|CON", "pos: c\nmpos: CON\n"),
          Row("form='a' lemma='a' postag='r--------'", "a|a|APPR", "pos: r\nmpos: APPR\n"),
          Row("form='-que' lemma='xé' postag='d'", "x\xC3que|x\xC3|ADV", "pos: d\nmpos: ADV\n"),
          Row("postag='n'", "||NN", "pos: n\nmpos: NN\n"), Row("postag='t'", "||VP", "pos: t\nmpos: VP\n"),
          Row("postag='a'", "||ADJ", "pos: a\nmpos: ADJ\n"), Row("postag='p'", "||P", "pos: p\nmpos: P\n"),
          Row("postag='m'", "||NUM", "pos: m\nmpos: NUM\n"), Row("postag='i'", "||ITJ", "pos: i\nmpos: ITJ\n"),
          Row("postag='e'", "||ITJ", "pos: e\nmpos: ITJ\n"), Row("postag='u--------'", "||$,", "pos: u\nmpos: $,\n"),
          Row("postag='x--------'", "||OLD", "pos: x\nmpos: OLD\n"), Row("postag='V'", "||OLD", "pos: V\nmpos: OLD\n"),
          Row("postag=''", "||OLD", "pos: \nmpos: OLD\n"), Row("", "||OLD", "pos: \nmpos: OLD\n")}) {
        SCOPED_TRACE(attributes);
        xmlpp::DomParser parser;
        parser.parse_memory(std::string("<word ") + attributes + "/>");
        LexicalEntry entry("old", "older", "OLD");
        testing::internal::CaptureStdout();
        entry.parse_ldt(parser.get_document()->get_root_node(), true);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), printed);
        EXPECT_EQ(entry.get_word_form() + '|' + entry.get_lemma() + '|' + entry.get_pos(), expected);
    }
}

TEST(TeiWord, TakesItsOwnTextOnly) {
    xmlpp::DomParser parser;
    parser.parse_memory("<w type='V' lemma='amo' function='pred'> am<hi>XX</hi><!-- no -->at </w>");
    LexicalEntry entry;
    entry.parse_tei(parser.get_document()->get_root_node());
    EXPECT_EQ(entry.get_abbreviated_word_form(), " amat ");
    EXPECT_EQ(entry.get_pos() + entry.get_lemma() + entry.get_function(), "Vamopred");
    parser.parse_memory("<w/>");
    entry.parse_tei(parser.get_document()->get_root_node());
    EXPECT_EQ(entry.get_word_form() + entry.get_pos() + entry.get_lemma() + entry.get_function(), "");
}

TEST(XmlWords, NullElementsAndGermanChangeNothing) {
    LexicalEntry entry("amo", "amat", "V");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    entry.parse_ldt(nullptr, false);
    entry.parse_tei(nullptr);
    entry.parse_german("Haus#Haus");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "not implemented yet\n");
    EXPECT_EQ(entry.get_word_form() + entry.get_lemma() + entry.get_pos(), "amatamoV");
}

} // namespace
} // namespace zelvor
