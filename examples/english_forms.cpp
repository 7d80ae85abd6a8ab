#include "utils/EnglishLexicalEntry.h"
#include "utils/lexicon_utils/rules.h"

#include <initializer_list>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

/// Makes word forms of English lemmas by rules: the plurals of a noun from a plain list, then entries with features of
/// several lemmas as an export file.
///     english_forms examples/english/plurals.txt examples/english/forms.xml
int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: english_forms PLAIN_RULES RULES_AND_FEATURES\n";
        return 2;
    }
    std::vector<zelvor::Rule*> rules;
    zelvor::parse_rules(argv[1], rules, nullptr);
    for (const char* const lemma : {"party", "church", "knife", "cat"}) {
        std::vector<std::string> forms;
        zelvor::apply_rules(lemma, rules, forms, nullptr);
        std::cout << lemma << ':';
        for (const std::string& form : forms)
            std::cout << ' ' << form;
        std::cout << '\n';
    }
    zelvor::delete_rules(rules);

    zelvor::RuleMap rules_and_features; // stays allocated until the program ends
    zelvor::parse_rules_features(argv[2], rules_and_features);
    std::cout << zelvor::headline() << '\n';
    for (const auto& [lemma, pos] : std::initializer_list<std::pair<const char*, const char*>>{
             {"party", "NN"}, {"glass", "NN"}, {"bake", "VB"}, {"happy", "JJ"}, {"often", "RB"}}) {
        zelvor::EnglishLexicalEntry entry(lemma, lemma, pos);
        entry.set_lemma_pos(pos);
        std::vector<zelvor::EnglishLexicalEntry*> forms;
        zelvor::apply_rules_features(entry, forms, rules_and_features, lemma, lemma, pos, "list", "rules", "list,rules",
                                     false);
        for (zelvor::EnglishLexicalEntry* const form : forms) {
            form->export_entry(&std::cout);
            delete form;
        }
    }
    return 0;
}
