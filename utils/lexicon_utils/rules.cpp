#include "utils/lexicon_utils/rules.h"

#include "utils/EnglishLexicalEntry.h"
#include "utils/common_utils/entity_guard.h"
#include "utils/common_utils/files.h"
#include "utils/common_utils/text.h"
#include "utils/logging_utils.h"

#include <libxml++/libxml++.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include <unistd.h>

namespace zelvor {

namespace {

using RuleSets = std::set<std::vector<Rule*>*>;
using Sources = std::set<std::string>;

std::size_t premise_length(const Rule* rule) { return rule ? rule->get_premise().size() : 0; }

/// A directory opens and cannot be read; a pipe would be read for good.
bool is_readable(const std::string& filename) {
    std::error_code ignored;
    if (std::filesystem::is_fifo(filename, ignored))
        return access(filename.c_str(), R_OK) == 0;
    std::ifstream file(filename);
    file.peek();
    return file.is_open() && !file.bad();
}

std::vector<const xmlpp::Element*> child_elements(const xmlpp::Element& parent) {
    std::vector<const xmlpp::Element*> elements;
    for (const xmlpp::Node* const node : parent.get_children())
        if (const auto* const element = dynamic_cast<const xmlpp::Element*>(node))
            elements.push_back(element);
    return elements;
}

std::string attribute(const xmlpp::Element& element, const char* name) {
    return element.get_attribute_value(name).raw();
}

std::vector<Rule*>* read_rule_set(const xmlpp::Element& element) {
    auto* const rules = new std::vector<Rule*>();
    auto* const feature_sets = new std::vector<Rule::Features*>();
    for (const xmlpp::Element* const part : child_elements(element)) {
        if (part->get_name().raw() == "rules") {
            for (const xmlpp::Element* const rule : child_elements(*part))
                rules->push_back(new Rule(attribute(*rule, "conclusion"), attribute(*rule, "premise"), feature_sets));
        } else if (part->get_name().raw() == "features") {
            feature_sets->push_back(new Rule::Features());
            for (const xmlpp::Element* const feature : child_elements(*part))
                feature_sets->back()->emplace(attribute(*feature, "name"), attribute(*feature, "value"));
        }
    }
    return rules;
}

bool subsumes(const Rule& longer, const Rule& rule) {
    const auto extends = [](const std::string& text, const std::string& end) {
        return text.size() > end.size() && text.ends_with(end);
    };
    return extends(longer.get_conclusion(), rule.get_conclusion()) && extends(longer.get_premise(), rule.get_premise());
}

/// The rules that have been applied to a lemma. Those whose conclusions end alike stand together.
class UsedRules {
public:
    explicit UsedRules(const std::string& lemma) : m_lemma(lemma) {}

    void add(const Rule& rule) { m_rules.emplace(reversed(rule.get_conclusion()), &rule); }

    /// Whether the conclusion was used, or a longer rule covers the same change.
    bool rule_out(const Rule& rule) const {
        const std::string end = reversed(rule.get_conclusion());
        auto it = m_rules.lower_bound(end);
        if (it != m_rules.end() && it->first == end)
            return true;
        if (!m_lemma.ends_with(rule.get_premise())) // then it does not end with a longer premise either
            return false;
        for (; it != m_rules.end() && it->first.starts_with(end); ++it)
            if (subsumes(*it->second, rule))
                return true;
        return false;
    }

private:
    static std::string reversed(const std::string& text) { return {text.rbegin(), text.rend()}; }

    const std::string& m_lemma;
    std::multimap<std::string, const Rule*> m_rules; ///< by the reversed conclusion
};

Sources pieces_of(const std::string& list) {
    Sources pieces;
    insert(pieces, list);
    return pieces;
}

/// The first rule that makes something of the lemma, with what it makes.
std::pair<const Rule*, std::string> first_applying(const std::vector<Rule*>& rules, const std::string& lemma) {
    for (const Rule* const rule : rules)
        if (std::string word_form = rule ? rule->apply_rule(lemma) : ""; !word_form.empty())
            return {rule, std::move(word_form)};
    return {nullptr, ""};
}

} // namespace

bool length_greater(Rule* p1, Rule* p2) { return premise_length(p1) >= premise_length(p2); }

void parse_rules(std::istream& text, std::vector<Rule*>& vec_prules) {
    for_each_line(text, [&](const std::string& line) {
        const std::size_t blank = line.find(' ');
        const std::string premise = blank == std::string::npos ? "" : line.substr(blank + 1);
        vec_prules.push_back(new Rule(line.substr(0, blank), premise, nullptr));
    });
    std::ranges::stable_sort(vec_prules, std::ranges::greater(), premise_length);
}

void parse_rules(const std::string& rule_filename, std::vector<Rule*>& vec_prules, log4cpp::Category* pmain_cat) {
    std::ifstream file(rule_filename);
    parse_rules(file, vec_prules);
    log_message(pmain_cat, {" number of rules in ", rule_filename, ": ", std::to_string(vec_prules.size())});
}

void parse_rules_features(const std::string& filename, RuleMap& map_set_rules) {
    if (!is_readable(filename))
        return;
    xmlpp::DomParser parser;
    parser.set_substitute_entities(true);
    {
        const EntityGuard guard(filename, nullptr);
        parser.parse_file(filename);
        guard.rethrow();
    }
    for (const xmlpp::Element* const element : child_elements(*parser.get_document()->get_root_node())) {
        if (element->get_name().raw() != "part_of_speech" || map_set_rules.contains(attribute(*element, "name")))
            continue;
        auto* const rule_sets = new RuleSets();
        map_set_rules.emplace(attribute(*element, "name"), rule_sets);
        for (const xmlpp::Element* const rule_set : child_elements(*element))
            rule_sets->insert(read_rule_set(*rule_set));
    }
}

bool collection_ends_with(const std::string& suffix, const std::set<std::string>& conclusions) {
    return std::ranges::any_of(conclusions, [&](const std::string& text) { return vends_with(text, suffix); });
}

bool subsume_rule(Rule* prule, std::set<Rule*> vec_rules) {
    return prule &&
           std::ranges::any_of(vec_rules, [&](const Rule* longer) { return longer && subsumes(*longer, *prule); });
}

void insert(std::set<std::string>& set_entries, std::string s) {
    if (s.find(',') == std::string::npos)
        set_entries.insert(std::move(s));
    else
        tokenize_arg_set(s, ",", set_entries);
}

void apply_rules(const std::string& lemma, std::vector<Rule*>& rules, std::vector<std::string>& created_surface_forms,
                 log4cpp::Category* pmain_cat) {
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const std::string input = lemma; // may be an element of the list that grows
    UsedRules used_rules(input);
    log_message(pmain_cat, {"number of rules: ", std::to_string(rules.size())});
    for (const Rule* const rule : rules) {
        if (!rule)
            continue;
        const std::string& conclusion = rule->get_conclusion();
        if (used_rules.rule_out(*rule)) {
            log_message(pmain_cat, {"conclusion ", conclusion, " already used. Skipping"});
            continue;
        }
        log_message(pmain_cat, {"apply rule: ", conclusion, "<=", rule->get_premise(), " on ", input});
        const std::string result = rule->apply_rule(input);
        log_message(pmain_cat, {"result: ", result});
        if (result.empty())
            continue;
        log_message(pmain_cat, {"application of rule successful"});
        created_surface_forms.push_back(result);
        used_rules.add(*rule);
    }
}

void apply_rules_features(EnglishLexicalEntry& input_entry, std::vector<EnglishLexicalEntry*>& output_entries,
                          const RuleMap& map_rules, const std::string& lemma_resource,
                          const std::string& word_form_resource, const std::string& pos_resource,
                          const std::string& lemma_source, const std::string& word_form_source,
                          const std::string& pos_source, bool apply_genitive_forms) {
    apply_rules_features_with_sources(input_entry, output_entries, map_rules, pieces_of(lemma_resource),
                                      pieces_of(word_form_resource), pieces_of(pos_resource), pieces_of(lemma_source),
                                      pieces_of(word_form_source), pieces_of(pos_source), apply_genitive_forms);
}

void apply_rules_features_with_sources(EnglishLexicalEntry& input_entry,
                                       std::vector<EnglishLexicalEntry*>& output_entries, const RuleMap& map_rules,
                                       const std::set<std::string>& set_lemma_resource,
                                       const std::set<std::string>& set_word_form_resource,
                                       const std::set<std::string>& set_pos_resource,
                                       const std::set<std::string>& set_lemma_source,
                                       const std::set<std::string>& set_word_form_source,
                                       const std::set<std::string>& set_pos_source, bool /*apply_genitive_forms*/) {
    using Insert = void (EnglishLexicalEntry::*)(const std::string&);
    const std::pair<const Sources*, Insert> provenance[] = {
        {&set_lemma_source, &EnglishLexicalEntry::insert_originating_source_lemmas},
        {&set_word_form_source, &EnglishLexicalEntry::insert_originating_source_wordforms},
        {&set_pos_source, &EnglishLexicalEntry::insert_originating_source_pos},
        {&set_lemma_resource, &EnglishLexicalEntry::insert_originating_lemmas},
        {&set_word_form_resource, &EnglishLexicalEntry::insert_originating_wordforms},
        {&set_pos_resource, &EnglishLexicalEntry::insert_originating_pos}};
    const std::string lemma = input_entry.get_lemma(), pos = input_entry.get_lemma_pos();
    const auto found = map_rules.find(pos);
    if (found == map_rules.end() || !found->second)
        return;
    for (const std::vector<Rule*>* const rules : *found->second) {
        if (!rules)
            continue;
        const auto [rule, word_form] = first_applying(*rules, lemma);
        for (int i = 0; rule && i < rule->feature_vector_size(); ++i) {
            auto* const entry = new EnglishLexicalEntry(lemma, word_form, pos);
            entry->set_lemma_pos(pos);
            entry->set_semtype(input_entry.get_semtype());
            rule->fill_features(*entry, i);
            for (const auto& [values, insert_value] : provenance)
                for (const std::string& value : *values)
                    (entry->*insert_value)(value);
            output_entries.push_back(entry);
        }
    }
}

void delete_rules(std::vector<Rule*>& vec_rules) {
    for (const Rule* const rule : vec_rules)
        delete rule;
    vec_rules.clear();
}

} // namespace zelvor
