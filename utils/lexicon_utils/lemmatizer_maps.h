#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// The files in which the lemmatiser's and the OCR decoder's output lines are kept between runs, a table of attachment
/// scores, and indexes by part-of-speech tag. docs/candidates.md describes the formats and their oddities.
///
/// Inner containers are made here with new and belong to the owner of the map; the free functions delete them. An
/// unreadable file yields no entries, a key that is there already keeps its value. Where a map holds null under a tag,
/// nothing is kept of that tag.
namespace zelvor {

class BaseLexicalEntry;
class WordFormContainer;

using LineCache = std::map<std::string, std::string>; ///< word form to the whole line

/// Writes each tag's lines as "key:line" to the file named like the tag; an existing file is replaced. Tags are not
/// checked: "../outside" writes outside the directory (see is_shell_safe).
void export_lemmatizer_map(const std::map<std::string, LineCache*>& map_cache, const std::string& directory);

/// Lines "key<tab>line". The stored value is the whole line with key and tab, so that a hit names the word form
/// "key<tab>key" when it is parsed as output of the lemmatiser, and reaches no container.
void fill_lemmatizer_hashmap(const std::string& lemmatizer_hashmap_filename, LineCache& map_lemmatizer_cache);

/// Lines "key line", split at the first blank; the value is the whole line.
void fill_ocr_hashmap(const std::string& ocr_hashmap_file, LineCache& map_ocr_cache);

/// Reads a file for every name in the directory, into the cache of the tag before the name's first "."; the file is
/// opened by that bare name, so the working directory must be this one. Prints the directory's name. The key ends at
/// the first blank: what export_lemmatizer_map wrote comes back under "key:key".
void fill_lemmatizer_hashmap_allpos(const std::string& lemmatizer_directory,
                                    std::map<std::string, LineCache*>& map_lemmatizer_cache);
void free_lemmatizer_map(std::map<std::string, LineCache*>& map_lemmatizer_cache);

/// Lines "word1,word2:count,_,_,_,score", perhaps with more fields. Pairs seen 20 times or fewer, and scores "nan",
/// "-nan" and "inf", are left out, and so are lines that do not fit.
void parse_attachment_map(const std::string& filename,
                          std::map<std::pair<std::string, std::string>, double>& map_attachment);

/// Adds the part of speech of every entry; a null vector has none.
void get_possible_pos(std::vector<BaseLexicalEntry*>* pvec, std::set<std::string>& set_pos);

void add_pos_wf_to_hash(std::map<std::string, std::set<std::string>*>& map_pos, const std::string& pos,
                        const std::string& word_form);
void free_pos_wf_to_hash(std::map<std::string, std::set<std::string>*>& map_pos);

using WordFormContainers = std::multimap<std::string, WordFormContainer*>; ///< by word form

/// Prints the numbers of its steps. The container stays the caller's.
void add_pos_wf_to_wfc(std::map<std::string, WordFormContainers*>& map_wfc, const std::string& pos,
                       const std::string& word_form, WordFormContainer* pword_form_container);
void free_wfc_hash(std::map<std::string, WordFormContainers*>& map_wfc);

} // namespace zelvor
