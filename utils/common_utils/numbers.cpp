#include "utils/common_utils/numbers.h"

#include "utils/common_utils/files.h"
#include "utils/common_utils/text.h"

#include <cstdlib>
#include <sstream>

namespace zelvor {

void parse_numbers(const std::string& numbers, const std::string& sep, std::vector<int>& values) {
    std::vector<std::string> tokens;
    tokenize_arg(numbers, sep, tokens);
    for (const std::string& token : tokens)
        values.push_back(std::atoi(token.c_str()));
}

void parse_numbers_set(const std::string& numbers, const std::string& sep, std::set<int>& values) {
    std::vector<int> list;
    parse_numbers(numbers, sep, list);
    values.insert(list.begin(), list.end());
}

double convert_string_to_double(const std::string& s) {
    std::istringstream is(s);
    is.imbue(std::locale::classic());
    double value = 0.0;
    is >> value;
    return value;
}

double convert_ustring_to_double(Glib::ustring s) { return convert_string_to_double(s.raw()); }

void increase_hash_value(std::map<std::string, int>& pmap, const std::string& str, int increase) {
    int& value = pmap[str];
    value = static_cast<int>(static_cast<unsigned int>(value) + static_cast<unsigned int>(increase)); // wraps around
}

void increase_hash_value(std::map<std::string, int>* pmap, const std::string& str, int increase) {
    if (pmap)
        increase_hash_value(*pmap, str, increase);
}

void read_string_int_hashtable(std::string filename, std::map<std::string, int>& map_string_int) {
    for_each_line(filename, [&](const std::string& line) {
        if (const std::size_t equals = line.rfind('='); equals != std::string::npos)
            map_string_int.emplace(line.substr(0, equals), std::atoi(line.c_str() + equals + 1));
    });
}

} // namespace zelvor
