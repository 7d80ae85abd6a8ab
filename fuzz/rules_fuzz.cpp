// A rule-and-feature file, and lines "part_of_speech lemma" to apply its rules to.
#include "fuzz/fuzz.h"
#include "utils/EnglishLexicalEntry.h"
#include "utils/lexicon_utils/rules.h"

#include <exception>
#include <memory>
#include <vector>

namespace zelvor::fuzz {
namespace {

/// A rule that shows the list of feature sets that it shares with the others of its set.
struct OpenRule : Rule {
    static std::vector<Features*>* features_of(const Rule& rule) { return rule.*&OpenRule::m_pvector_pmap_features; }
};

void free_rules(RuleMap& rules) {
    for (const auto& [pos, rule_sets] : rules) {
        for (std::vector<Rule*>* const rule_set : *rule_sets) {
            if (!rule_set->empty()) { // the features of a set without rules stay allocated
                for (const Rule::Features* const features : *OpenRule::features_of(*rule_set->front()))
                    delete features;
                delete OpenRule::features_of(*rule_set->front());
            }
            delete_rules(*rule_set);
            delete rule_set;
        }
        delete rule_sets;
    }
}

bool reads(const std::string& filename, RuleMap& rules) {
    const std::size_t before = rules.size();
    try {
        parse_rules_features(filename, rules);
        return true;
    } catch (const std::exception&) {
        require(rules.size() == before, "a file that is not read leaves the rules as they were");
        return false;
    }
}

/// How many forms the rules make, by the first rule of each set that applies.
std::size_t count_forms(const RuleMap& rules, const std::string& pos, const std::string& lemma) {
    std::size_t forms = 0;
    if (const auto found = rules.find(pos); found != rules.end())
        for (const std::vector<Rule*>* const rule_set : *found->second)
            for (const Rule* const rule : *rule_set) {
                const std::string& premise = rule->get_premise();
                if (!lemma.ends_with(premise) || (lemma.size() == premise.size() && rule->get_conclusion().empty()))
                    continue;
                forms += OpenRule::features_of(*rule)->size();
                break;
            }
    return forms;
}

void apply(const RuleMap& rules, const std::string& pos, const std::string& lemma) {
    EnglishLexicalEntry entry(lemma, lemma, pos);
    entry.set_lemma_pos(pos);
    std::vector<EnglishLexicalEntry*> made, made_by_twin;
    apply_rules_features(entry, made, rules, "r", "a,b", "", ",", "s", "", false);
    apply_rules_features_with_sources(entry, made_by_twin, rules, {"r"}, {"a", "b"}, {""}, {}, {"s"}, {""}, true);
    require(made.size() == count_forms(rules, pos, lemma), "a form for each feature set of the first rule", lemma);
    require(made.size() == made_by_twin.size(), "lists and sets of sources make the same", lemma);
    for (std::size_t i = 0; i < made.size(); ++i) {
        const std::unique_ptr<EnglishLexicalEntry> form(made[i]), twin(made_by_twin[i]);
        require_equal(form->to_string(), twin->to_string(), "and write the same");
        require_equal(form->get_lemma() + " " + form->get_lemma_pos(), lemma + " " + pos, "a form is of its lemma");
    }
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    const auto [text, lemmas] = halves(data, size);
    const MemoryFile file(text);
    zelvor::RuleMap rules;
    if (reads(file.path(), rules)) {
        const zelvor::RuleMap before = rules;
        require(reads(file.path(), rules) && rules == before, "of two parts of speech with one name the first counts");
    }
    for_each_line(lemmas, [&](const std::string& line) {
        const std::size_t blank = std::min(line.find(' '), line.size());
        apply(rules, line.substr(0, blank), line.substr(std::min(blank + 1, line.size())));
    });
    free_rules(rules);
    return 0;
}
