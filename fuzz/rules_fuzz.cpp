// A rule-and-feature file, and lines "part_of_speech lemma" to apply its rules to.
#include "fuzz/fuzz.h"
#include "utils/EnglishLexicalEntry.h"
#include "utils/lexicon_utils/rules.h"

namespace zelvor::fuzz {

/// A rule that shows the list of feature sets that it shares with the others of its set.
struct OpenRule : Rule {
    static std::vector<Features*>* features_of(const Rule& rule) { return rule.*&OpenRule::m_pvector_pmap_features; }
};

void free_rules(const RuleMap& rules) {
    for (const auto& [pos, rule_sets] : rules) {
        for (std::vector<Rule*>* const rule_set : *rule_sets) {
            if (!rule_set->empty()) { // the features of a set without rules stay allocated
                const std::unique_ptr<std::vector<Rule::Features*>> shared(OpenRule::features_of(*rule_set->front()));
                std::ranges::for_each(*shared, std::default_delete<Rule::Features>());
            }
            delete_rules(*rule_set);
            delete rule_set;
        }
        delete rule_sets;
    }
}

void apply(const RuleMap& rules, const std::string& pos, const std::string& lemma) {
    EnglishLexicalEntry entry(lemma, lemma, pos);
    entry.set_lemma_pos(pos);
    std::vector<EnglishLexicalEntry*> made, made_by_twin;
    apply_rules_features(entry, made, rules, "r", "a,b", "", ",", "s", "", false);
    apply_rules_features_with_sources(entry, made_by_twin, rules, {"r"}, {"a", "b"}, {""}, {}, {"s"}, {""}, true);
    require(made.size() == made_by_twin.size(), "lists and sets of sources make the same", lemma);
    for (std::size_t i = 0; i < made.size(); ++i) {
        const std::unique_ptr<EnglishLexicalEntry> form(made[i]), twin(made_by_twin[i]);
        require_equal(form->to_string(), twin->to_string(), "and write the same");
    }
}

} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    const auto [text, lemmas] = halves(data, size);
    const MemoryFile file(text);
    zelvor::RuleMap rules;
    const auto read = [&] {
        return succeeds<std::exception>([&] { zelvor::parse_rules_features(file.path(), rules); });
    };
    const bool is_read = read();
    require(is_read || rules.empty(), "a file that is not read leaves no rules", text);
    const zelvor::RuleMap before = rules;
    require(read() == is_read && rules == before, "of two parts of speech with one name the first counts");
    for_each_line(lemmas, [&](const std::string& line) {
        apply(rules, line.substr(0, line.find(' ')), line.substr(line.find(' ') + 1));
    });
    free_rules(rules);
    return 0;
}
