#pragma once

#include "utils/LexicalEntry.h"

#include <json/reader.h>
#include <libxml++/parsers/saxparser.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace log4cpp {
class Category;
}

namespace zelvor {

class AnalysisReader;
class CostlyErrors;

/// Reads a TEI training text as a stream into sentences of entries: one entry per `w` whose analysis the lexicon knows,
/// and one per `c` that is a punctuation mark with a tag. The format: docs/formats.md.
///
/// Sentences and entries are allocated here and stay allocated: a new document drops the list without freeing it, and
/// clear_lexical_entries frees the sentence vectors only. Lexicon and logger belong to the caller; both may be null.
class CrfTrainingTeiSaxParser : public xmlpp::SaxParser {
public:
    CrfTrainingTeiSaxParser(log4cpp::Category* pmain_cat, const std::map<int, LexicalEntry*>* pmap_plex_entry);
    ~CrfTrainingTeiSaxParser() override;

    void on_start_document() override;
    void on_start_element(const Glib::ustring& name, const AttributeList& attributes) override;
    void on_end_element(const Glib::ustring& name) override;
    void on_characters(const Glib::ustring& text) override;
    void on_error(const Glib::ustring& text) override;
    void on_fatal_error(const Glib::ustring& text) override;
    /// Ignored: the base would refuse an entity that an earlier document has declared, and lose the whole file.
    void on_entity_declaration(const Glib::ustring& name, xmlpp::XmlEntityType type, const Glib::ustring& public_id,
                               const Glib::ustring& system_id, const Glib::ustring& content) override;

    /// The sentences of the last document, in order; valid until the next parse. A pointer in it may be null (an end of
    /// a sentence that never began).
    std::vector<std::vector<LexicalEntry*>*>* get_entry_representations();
    void clear_lexical_entries();

protected:
    bool m_is_word_node = false;
    std::string m_lemma_json;
    std::string m_chars;
    std::string m_pos;
    bool m_is_text = false;
    log4cpp::Category* m_pmain_cat;
    bool m_fatal_error_occurred = false;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    Json::Reader m_json_reader;
#pragma GCC diagnostic pop
    const std::map<int, LexicalEntry*>* m_pmap_plex_entry;
    std::vector<LexicalEntry*>* m_pvec_plexical_entry_representation = nullptr;
    std::vector<std::vector<LexicalEntry*>*> m_vec_pvec_lexical_entry_representation;
    std::unique_ptr<AnalysisReader> m_panalysis_reader;

private:
    void begin_token(); ///< text is gathered from here
    void reset_token(); ///< and no longer from here
    void end_word();
    void end_punctuation();
    const LexicalEntry* find_entry(int id) const;
    void add_entry(const std::string& lemma, const std::string& pos);

    std::unique_ptr<CostlyErrors> m_pcostly_errors;
};

} // namespace zelvor
