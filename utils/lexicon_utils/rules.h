#pragma once

#include "utils/Rule.h"

#include <istream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace log4cpp {
class Category;
}

/// Rules that make word forms of lemmas. Null categories are silent, null rules and null lists are passed over. The
/// formats of both rule files: docs/english.md.
namespace zelvor {

class EnglishLexicalEntry;

/// Part of speech to its rule sets, each a list of rules in file order. The sets are ordered by address: the order in
/// which rule sets are visited means nothing.
using RuleMap = std::map<std::string, std::set<std::vector<Rule*>*>*>;

/// Whether p1's premise is at least as long as p2's. Of equally long ones either precedes: nothing for std::sort.
bool length_greater(Rule* p1, Rule* p2);

/// Appends a rule per line of a plain rule file ("conclusion premise", or a conclusion alone), which the caller owns,
/// then sorts the whole list by descending premise length, stably. A missing file yields no rule; the count is logged
/// all the same.
void parse_rules(const std::string& rule_filename, std::vector<Rule*>& vec_prules, log4cpp::Category* pmain_cat);
void parse_rules(std::istream& text, std::vector<Rule*>& vec_prules);

/// Reads a rule-and-feature file. Of two parts of speech with one name the first counts. All that is made here stays
/// allocated until somebody frees it. An unreadable file leaves the map as it is. Whatever the XML library complains
/// of, be it a mere warning, throws xmlpp::exception, and the map is unchanged. External entities are read from the
/// file's folder and below, others are left out without a word.
void parse_rules_features(const std::string& filename, RuleMap& map_set_rules);

/// Whether some element ends with the suffix.
bool collection_ends_with(const std::string& suffix, const std::set<std::string>& conclusions);

/// Whether a longer rule of the set covers the same change: both its conclusion and its premise end with those of
/// prule, and both differ from them.
bool subsume_rule(Rule* prule, std::set<Rule*> vec_rules);

/// Adds the pieces of a comma list, or s itself (also the empty one) where it holds no comma.
void insert(std::set<std::string>& set_entries, std::string s);

/// Appends the word forms that the sorted rules make of the lemma, in rule order. A conclusion counts once, and a rule
/// that a used one subsumes is skipped.
void apply_rules(const std::string& lemma, std::vector<Rule*>& rules, std::vector<std::string>& created_surface_forms,
                 log4cpp::Category* pmain_cat);

/// Appends new entries, which the caller owns: of each rule set for the entry's lemma part of speech, the first rule
/// that applies to its lemma makes one entry per feature set. The resources go to the originating sets and the sources
/// to the originating source sets, as comma lists here and as sets in the twin. apply_genitive_forms has no effect.
void apply_rules_features(EnglishLexicalEntry& input_entry, std::vector<EnglishLexicalEntry*>& output_entries,
                          const RuleMap& map_rules, const std::string& lemma_resource,
                          const std::string& word_form_resource, const std::string& pos_resource,
                          const std::string& lemma_source, const std::string& word_form_source,
                          const std::string& pos_source, bool apply_genitive_forms);
void apply_rules_features_with_sources(EnglishLexicalEntry& input_entry,
                                       std::vector<EnglishLexicalEntry*>& output_entries, const RuleMap& map_rules,
                                       const std::set<std::string>& set_lemma_resource,
                                       const std::set<std::string>& set_word_form_resource,
                                       const std::set<std::string>& set_pos_resource,
                                       const std::set<std::string>& set_lemma_source,
                                       const std::set<std::string>& set_word_form_source,
                                       const std::set<std::string>& set_pos_source, bool apply_genitive_forms);

/// Deletes the rules, but not their feature sets, and empties the list.
void delete_rules(std::vector<Rule*>& vec_rules);

} // namespace zelvor
