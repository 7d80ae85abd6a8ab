#include "utils/lexicon_utils/rules.h"

#include "tests/testing.h"
#include "utils/EnglishLexicalEntry.h"

#include <libxml++/libxml++.h>

#include <thread>

#include <sys/stat.h>

namespace zelvor {

TEST(Rules, PlainFileGivesAListSortedByPremise) {
    const TemporaryDirectory directory;
    CapturedLog log;
    const std::string file = directory.write("rules", "s\nies y\n\na b c\nes y\n bb\r");
    std::vector<Rule*> rules{new Rule("kept", "xx", nullptr)};
    parse_rules(file, rules, nullptr);
    Strings list, forms{"first"};
    for (const Rule* const rule : rules)
        list.push_back(rule->get_conclusion() + "/" + rule->get_premise());
    EXPECT_EQ(list, (Strings{"a/b c", "/bb\r", "kept/xx", "ies/y", "es/y", "s/", "/"}));
    EXPECT_TRUE(length_greater(rules[4], rules[3])); // kept: for equal lengths too
    EXPECT_FALSE(length_greater(rules[5], rules[4]));
    parse_rules(file + ".missing", rules, &log.category);
    rules.push_back(nullptr);
    apply_rules("party", rules, forms, &log.category);
    apply_rules("party", rules, forms, nullptr);
    // "s" is subsumed by "ies"; the empty rule, by both.
    EXPECT_EQ(forms, (Strings{"first", "parties", "partes", "parties", "partes"}));
    log.expect({" number of rules in " + file + ".missing: 7", "number of rules: 8", "apply rule: ies<=y on party",
                "result: parties", "application of rule successful", "conclusion s already used. Skipping"});
    delete_rules(rules);
    EXPECT_TRUE(rules.empty());
}

TEST(Rules, ReplaceASuffixAndUseAConclusionOnlyOnceItHasGivenAForm) {
    EXPECT_EQ(Rule("x", "cat", nullptr).apply_rule("cat"), "x");
    EXPECT_EQ(Rule("s", "Y", nullptr).apply_rule("party"), "");
    Rule miss("s", "x", nullptr), hit("s", "", nullptr), again("s", "t", nullptr), other("two", "", nullptr);
    std::vector<Rule*> rules{&miss, &hit, &again, &other};
    Strings forms{std::string(40, 'x') + "t"};
    apply_rules(forms[0], rules, forms, nullptr); // the list that grows holds the lemma
    EXPECT_EQ(forms, (Strings{forms[0], forms[0] + "s", forms[0] + "two"}));
    Rule longer("ies", "ry", nullptr);
    using Row = std::tuple<const char*, const char*, bool>;
    for (const auto& [conclusion, premise, expected] :
         {Row("es", "y", true), Row("ies", "y", false), Row("es", "ry", false), Row("s", "x", false)}) {
        Rule rule(conclusion, premise, nullptr);
        EXPECT_EQ(subsume_rule(&rule, {nullptr, &longer}), expected) << conclusion;
    }
    EXPECT_FALSE(subsume_rule(nullptr, {&longer}));
    EXPECT_TRUE(collection_ends_with("s", {"x", "ies"}));
    EXPECT_EQ(longer.feature_vector_size(), 0);
}

TEST(RulesWithFeatures, MakeAnEntryPerFeatureSetOfTheFirstRuleThatApplies) {
    const TemporaryDirectory directory;
    RuleMap map;
    directory.write("above", "<r premise='y' conclusion='of an entity elsewhere'/>");
    directory.write("folder/beside", "<r premise='y' conclusion='ies'/>");
    parse_rules_features(directory.write("folder/rules.xml", R"(<!DOCTYPE r [<!ENTITY above SYSTEM "../above">
<!ENTITY beside SYSTEM "beside"><!ENTITY own "<f name='WFPOS' value='NNS'/>">]><r><!-- --><other/>
<part_of_speech name="NN"><set>text<rules>&above;&beside;<r conclusion="s"/></rules><ignored/>
<features><f name="NUMERUS" value="PL"/><f name="NUMERUS" value="no"/><f name="CASE" value="C"/><f name="odd" value="x"/></features>
<features>&own;<f name="PERSON" value="3"/><f name="MOOD" value="M"/><f name="TENSE" value="T"/>
<f name="COMPARISON_DEGREE" value="D"/></features></set></part_of_speech>
<part_of_speech name="NN"><set><rules><r conclusion="never"/></rules><features/></set></part_of_speech>
<part_of_speech name="VB"><set><rules><r conclusion="bare"/></rules></set></part_of_speech></r>)"),
                         map);
    ASSERT_EQ(map.size(), 2U);
    map.at("NN")->insert(nullptr);
    EnglishLexicalEntry party("party", "party", "NN");
    party.set_semtype("event");
    std::vector<EnglishLexicalEntry*> output;
    for (const char* const pos : {"NN", "VB", "JJ"}) { // a rule without features makes nothing; no rules at all
        party.set_lemma_pos(pos);
        apply_rules_features(party, output, map, "lr", "wr,wr2", "", "ls", "ws", "ps", true);
    }
    ASSERT_EQ(output.size(), 2U);
    const std::unique_ptr<EnglishLexicalEntry> first(output[0]), last(output[1]);
    EXPECT_EQ(first->to_string(), "parties\tparty\tNN\tNN\tws\tls\tps\tC\t\t\t\tPL\t\t\tevent\n");
    EXPECT_EQ(last->to_string(), "parties\tparty\tNN\tNNS\tws\tls\tps\t\t\t\t\t\t3\tT\tevent\n");
    EXPECT_EQ(last->get_mood() + last->get_comparison_degree(), "MD");
    EXPECT_TRUE(first->contains_originating_lemmas("lr"));
    EXPECT_TRUE(first->contains_originating_word_forms("wr2"));
    EXPECT_TRUE(first->contains_originating_pos(""));
    const Rule& rule = *(*map.at("NN")->rbegin())->front();
    EXPECT_EQ(rule.feature_vector_size(), 2);
    EXPECT_THROW(rule.fill_features(party, 2), std::out_of_range);
    EXPECT_THROW(rule.fill_features(party, -1), std::out_of_range);
}

TEST(RulesWithFeatures, UnreadableFilesAreEmptyAndBadXmlThrows) {
    const TemporaryDirectory directory;
    RuleMap map;
    parse_rules_features(directory.path("missing"), map);
    parse_rules_features(directory.path(), map);
    for (const char* const text : {"<r><part_of_speech name='x'>", "", "<r xmlns='relative'/>"})
        EXPECT_THROW(parse_rules_features(directory.write("bad", text), map), xmlpp::exception) << text;
    EXPECT_TRUE(map.empty());
    const std::string pipe = directory.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::jthread writer([&] { std::ofstream(pipe) << "<r><part_of_speech name='NN'/></r>"; });
    parse_rules_features(pipe, map);
    EXPECT_TRUE(map.contains("NN"));
}

} // namespace zelvor
