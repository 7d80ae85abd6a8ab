#include "training/CrfTrainingTeiSaxParser.h"

#include "training/CostlyErrors.h"
#include "training/analysis.h"
#include "training/tags.h"
#include "utils/logging_utils.h"

#include <iostream>
#include <new>
#include <set>

namespace zelvor {

CrfTrainingTeiSaxParser::CrfTrainingTeiSaxParser(log4cpp::Category* pmain_cat,
                                                 const std::map<int, LexicalEntry*>* pmap_plex_entry)
    : m_pmain_cat(pmain_cat), m_pmap_plex_entry(pmap_plex_entry),
      m_panalysis_reader(std::make_unique<AnalysisReader>()), m_pcostly_errors(std::make_unique<CostlyErrors>()) {}

CrfTrainingTeiSaxParser::~CrfTrainingTeiSaxParser() = default;

void CrfTrainingTeiSaxParser::on_start_document() {
    m_is_word_node = false;
    m_pcostly_errors->begin_document();
    m_vec_pvec_lexical_entry_representation.clear();
}

void CrfTrainingTeiSaxParser::on_start_element(const Glib::ustring& name, const AttributeList& attributes) {
    const std::string& element = name.raw();
    if (element == "w" || element == "c") {
        begin_token();
        for (const Attribute& attribute : attributes) {
            if (attribute.name.raw() == "lemma")
                m_lemma_json = attribute.value.raw();
            else if (attribute.name.raw() == "type")
                m_pos = attribute.value.raw(); // kept: a token without a type has that of the token before it
        }
    } else if (element == "s") {
        m_pvec_plexical_entry_representation = new std::vector<LexicalEntry*>();
    }
}

void CrfTrainingTeiSaxParser::on_characters(const Glib::ustring& text) {
    if (m_is_word_node)
        m_chars += text.raw();
}

void CrfTrainingTeiSaxParser::on_end_element(const Glib::ustring& name) {
    const std::string& element = name.raw();
    if (element == "w")
        end_word();
    else if (element == "c")
        end_punctuation();
    else if (element == "s")
        // The sentence stays the current one: tokens that follow it before the next one begins still belong to it.
        m_vec_pvec_lexical_entry_representation.push_back(m_pvec_plexical_entry_representation);
}

void CrfTrainingTeiSaxParser::end_word() {
    if (m_lemma_json.size() > 1) {
        unwrap_analysis(m_lemma_json);
        const Analysis& analysis = m_panalysis_reader->read(m_json_reader, m_lemma_json);
        if (analysis.outcome == Analysis::Outcome::UNPARSABLE) {
            std::cerr << "Failed to parse " << m_lemma_json << std::endl;
            return; // kept: the token state is not reset here, so that text up to the next token is still gathered
        }
        if (analysis.outcome == Analysis::Outcome::FOUND) {
            if (const LexicalEntry* const entry = find_entry(analysis.id))
                add_entry(analysis.lemma, word_tag(entry->get_pos(), entry->get_lemma_pos()));
        }
    }
    reset_token();
}

void CrfTrainingTeiSaxParser::end_punctuation() {
    if (const std::string_view tag = punctuation_tag(m_chars); !tag.empty())
        add_entry(m_chars, std::string(tag));
    reset_token();
}

void CrfTrainingTeiSaxParser::begin_token() {
    m_is_word_node = true;
    m_chars.clear();
    m_lemma_json.clear();
}

void CrfTrainingTeiSaxParser::reset_token() {
    m_is_word_node = false;
    m_chars.clear();
}

/// The entry of the lexicon with this word-form id, or null.
const LexicalEntry* CrfTrainingTeiSaxParser::find_entry(int id) const {
    if (!m_pmap_plex_entry)
        return nullptr;
    const auto found = m_pmap_plex_entry->find(id);
    return found == m_pmap_plex_entry->end() ? nullptr : found->second;
}

void CrfTrainingTeiSaxParser::add_entry(const std::string& lemma, const std::string& pos) {
    if (m_pvec_plexical_entry_representation)
        m_pvec_plexical_entry_representation->push_back(new LexicalEntry(lemma, m_chars, pos));
}

void CrfTrainingTeiSaxParser::on_error(const Glib::ustring& text) {
    m_pcostly_errors->add(context_);
    try {
        log_message(m_pmain_cat, {"Error occurred during parsing! "}, log4cpp::Priority::ERROR);
        log_message(m_pmain_cat, {text.raw()}, log4cpp::Priority::ERROR);
    } catch (const std::bad_alloc&) { // would stop the parser, see CostlyErrors
    }
}

void CrfTrainingTeiSaxParser::on_fatal_error(const Glib::ustring& text) {
    m_fatal_error_occurred = true;
    log_message(m_pmain_cat, {"Fatal error occurred during parsing! "}, log4cpp::Priority::FATAL);
    log_message(m_pmain_cat, {text.raw()}, log4cpp::Priority::FATAL);
}

void CrfTrainingTeiSaxParser::on_entity_declaration(const Glib::ustring&, xmlpp::XmlEntityType, const Glib::ustring&,
                                                    const Glib::ustring&, const Glib::ustring&) {}

std::vector<std::vector<LexicalEntry*>*>* CrfTrainingTeiSaxParser::get_entry_representations() {
    return &m_vec_pvec_lexical_entry_representation;
}

void CrfTrainingTeiSaxParser::clear_lexical_entries() {
    // The same sentence may stand in the list more than once, and a null one too.
    for (const auto* sentence : std::set<const std::vector<LexicalEntry*>*>(
             m_vec_pvec_lexical_entry_representation.begin(), m_vec_pvec_lexical_entry_representation.end()))
        delete sentence;
    m_vec_pvec_lexical_entry_representation.clear();
    m_pvec_plexical_entry_representation = nullptr;
}

} // namespace zelvor
