#pragma once

#include <glibmm/ustring.h>

#include <map>
#include <set>
#include <string>
#include <vector>

/// Numbers read from text. What does not parse reads as 0; nothing throws.
namespace zelvor {

/// Every token of `numbers` (split at the characters of sep, empty ones dropped) as atoi reads it; appended.
void parse_numbers(const std::string& numbers, const std::string& sep, std::vector<int>& values);
void parse_numbers_set(const std::string& numbers, const std::string& sep, std::set<int>& values);

/// The number at the start of s as a stream in the classic locale reads it: no "nan", no "inf", no hexadecimal.
double convert_string_to_double(const std::string& s);
double convert_ustring_to_double(Glib::ustring s);

/// Adds increase to the count of str, which starts at 0.
void increase_hash_value(std::map<std::string, int>& pmap, const std::string& str, int increase);
void increase_hash_value(std::map<std::string, int>* pmap, const std::string& str, int increase);

/// Reads lines "key=count", split at the last "=" and not trimmed. Lines without "=" are skipped, the first of two
/// equal keys wins, a missing file reads as empty.
void read_string_int_hashtable(std::string filename, std::map<std::string, int>& map_string_int);

} // namespace zelvor
