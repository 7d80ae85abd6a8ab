#pragma once

#include <set>
#include <string>

namespace zelvor {

/// Adds every word of a WordNet 3.0 data file (data.noun and its like, one synset a line behind a numbered licence
/// header), with blanks for "_". Words of a synset whose first pointer is an instance hypernym ("@i") also go to
/// *pinstances, unless that is null. The word count, which the file writes in hexadecimal, is read as decimal: a synset
/// of ten words or more loses some or all of them. Throws std::out_of_range for a line that is too short (a blank one
/// is); a file that cannot be opened adds nothing.
void parse_wordnet_file(const std::string& filename, std::set<std::string>& output_tokens,
                        std::set<std::string>* pinstances);

} // namespace zelvor
