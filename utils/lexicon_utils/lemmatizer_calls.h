#pragma once

#include "utils/lexicon_utils/lemmatizer_maps.h"

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace log4cpp {
class Category;
}

/// Candidates from two external programs, a lemmatiser and an OCR decoder. Both read word forms, one a line in lower
/// case, from a file in temp_directory and print a line "word_form candidate||score candidate||score ..." for each:
///     LEMMATIZER INPUT MODEL SEG_MODEL 2 5 TEMP/Lemmatizer    (INPUT is TEMP/lemmas.txt)
///     DIRECTORY/decode.sh INPUT MODEL SEG_MODEL 2 5 TEMP/ocr  (INPUT is TEMP/ocr.txt)
///
/// Candidates go to the containers under the printed word form, or where there are none, under that form with a
/// capital. A cache answers for the forms that it knows, and `modified` is set when lines are put into it. Inner caches
/// made here are for free_lemmatizer_map; nothing else changes hands.
///
/// Nothing is checked: the directory must exist, the program must run. Paths, model names and TAGS stand in the shell
/// command as they are: a blank parts them, and a tag such as "$(reboot)" is run. They must come from nobody else; ask
/// is_shell_safe for each tag that was read from data. Word forms never reach the shell. Two calls at once need two
/// directories. A null category is silent, a null cache knows nothing and keeps nothing.
namespace zelvor {

/// Whether the tag can do nothing but name a model, and a file where export_lemmatizer_map is to write: ASCII letters,
/// digits and any of _.,:+@%=- only, the last not in front. Stricter than shells are: "PRP$" is refused.
bool is_shell_safe(std::string_view tag);

/// Adds every candidate. Always runs the program, and keeps nothing in the cache. Cached lines are parsed as one line,
/// all of it for the first one's word form.
void call_lemmatizer(std::string temp_directory, log4cpp::Category* pcat, const std::set<std::string>& word_forms,
                     const std::string& lemmatizer_path, const std::string& lemma_model,
                     const std::string& lemma_seg_model, std::multimap<std::string, WordFormContainer*>& map_wfc,
                     std::map<std::string, std::string>* pmap_cache);

/// Runs the program once for each tag, with models "DIRECTORY/TAG.NAME", and keeps each lemma's best score.
void call_lemmatizer_all_pos(std::string temp_directory, log4cpp::Category* pcat,
                             const std::set<std::string>& word_forms, const std::string& lemmatizer_path,
                             const std::string& lemma_model, const std::string& lemma_seg_model,
                             std::multimap<std::string, WordFormContainer*>& map_wfc,
                             std::map<std::string, std::map<std::string, std::string>*>* pmap_cache,
                             const std::set<std::string>& all_pos, bool& modified);

/// The same with word forms and containers of each tag, and adds every candidate. Lines of a tag without containers
/// are only cached.
void call_lemmatizer_pos(std::string temp_directory, log4cpp::Category* pcat,
                         const std::map<std::string, std::set<std::string>*>& map_pos_wfs,
                         const std::string& lemmatizer_path, const std::string& lemma_model,
                         const std::string& lemma_seg_model,
                         std::map<std::string, std::multimap<std::string, WordFormContainer*>*>& map_wfc,
                         std::map<std::string, std::map<std::string, std::string>*>* pmap_cache, bool& modified);

/// With an empty ocr_model, only the cache answers.
void call_ocr(std::string temp_directory, log4cpp::Category* pcat, const std::set<std::string>& word_forms,
              const std::string& ocr_directory, const std::string& ocr_model, const std::string& ocr_seg_model,
              std::multimap<std::string, WordFormContainer*>& map_wfc, std::map<std::string, std::string>* pmap_cache,
              bool& modified);

/// Reads one output line. One of fewer than two fields is passed over; any other enters the cache unless its word form
/// is there, and sets `modified` either way, whatever its fields hold. A field without "||" is no candidate. Lemmas are
/// added at the end of the list (add_tail) or merged by their best score.
void parse_line(const std::string& line, std::multimap<std::string, WordFormContainer*>& map_wfc,
                std::map<std::string, std::string>* pmap_pos_cache, bool& modified, bool add_tail);

/// The same for spellings, the first of equal ones; add_tail does not matter.
void parse_line_ocr(const std::string& line, std::multimap<std::string, WordFormContainer*>& map_wfc,
                    std::map<std::string, std::string>* pmap_pos_cache, bool& modified, bool add_tail);

} // namespace zelvor
