#include "utils/LexicalEntry.h"

#include <gtest/gtest.h>
#include <libxml++/libxml++.h>

namespace zelvor {
namespace {

TEST(TreebankWord, ReadsFormLemmaAndFirstTagLetter) {
    const struct {
        const char *attributes, *word_form, *lemma, *pos, *printed;
    } rows[] = {
        {"form='sum' lemma='sum1' postag='v1spia---'", "sum", "sum", "V", "pos: v\nmpos: V\n"},
        {"form='et' lemma='et' postag='c--------'", "et", "e", "CON", "pos: c\nmpos: CON\n"}, // its last byte is cut
        {"form='a' lemma='a' postag='r--------'", "a", "a", "APPR", "pos: r\nmpos: APPR\n"},
        {"form='-que' lemma='xé' postag='d'", "x\xC3que", "x\xC3", "ADV", "pos: d\nmpos: ADV\n"},
        {"postag='n'", "", "", "NN", "pos: n\nmpos: NN\n"},
        {"postag='t'", "", "", "VP", "pos: t\nmpos: VP\n"},
        {"postag='a'", "", "", "ADJ", "pos: a\nmpos: ADJ\n"},
        {"postag='p'", "", "", "P", "pos: p\nmpos: P\n"},
        {"postag='m'", "", "", "NUM", "pos: m\nmpos: NUM\n"},
        {"postag='i'", "", "", "ITJ", "pos: i\nmpos: ITJ\n"},
        {"postag='e'", "", "", "ITJ", "pos: e\nmpos: ITJ\n"},
        {"postag='u--------'", "", "", "$,", "pos: u\nmpos: $,\n"},
        {"postag='x--------'", "", "", "OLD", "pos: x\nmpos: OLD\n"},
        {"postag='V'", "", "", "OLD", "pos: V\nmpos: OLD\n"},
        {"postag=''", "", "", "OLD", "pos: \nmpos: OLD\n"},
        {"", "", "", "OLD", "pos: \nmpos: OLD\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.attributes);
        xmlpp::DomParser parser;
        parser.parse_memory(std::string("<word ") + row.attributes + "/>");
        LexicalEntry entry("old", "older", "OLD");
        testing::internal::CaptureStdout();
        entry.parse_ldt(parser.get_document()->get_root_node(), true);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.printed);
        EXPECT_EQ(entry.get_word_form(), row.word_form);
        EXPECT_EQ(entry.get_lemma(), row.lemma);
        EXPECT_EQ(entry.get_pos(), row.pos);
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
