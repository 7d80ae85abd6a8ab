#include "utils/lexicon_utils/word_classes.h"

#include "utils/common_utils/case.h"
#include "utils/common_utils/numbers.h"

#include <boost/regex.hpp>

#include <algorithm>
#include <cstdlib>

namespace zelvor {

const std::string MODEL_LEMMAS[] = {"should", "may",   "might", "will", "would", "must", "can",
                                    "could",  "shall", "ought", "need", "wilt",  ""};

namespace {

bool is_roman_numeral(const std::string& text) {
    static const boost::regex multinet_lemma_expression( // the Roman numerals without those that end in IV
        "M*(C?C?C?|CD|D|DC?C?C?|CM)?(X?X?X?|XL|L|LX?X?X?|XC)((VI?I?I?)|(I?I?I?)|(IX))?");
    return boost::regex_match(convert_uppercase(text), multinet_lemma_expression);
}

} // namespace

bool is_noun(const std::string& pos) { return pos == "NE" || pos == "NP" || pos == "N" || pos == "NN"; }

bool is_adjective(const std::string& pos) { return pos == "JJ" || pos == "ADJ"; }

bool is_verb(const std::string& pos) { return pos == "V" || pos == "VB"; }

bool is_modal(const std::string& lemma) {
    for (const std::string* modal = MODEL_LEMMAS; !modal->empty(); ++modal)
        if (*modal == lemma)
            return true;
    return false;
}

bool contains_latin_characters(const Glib::ustring& s) {
    return std::ranges::any_of(s.raw(), [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); });
}

bool is_latin_number(const Glib::ustring& s) { return is_roman_numeral(s.raw()); }

bool is_odinal_number(const Glib::ustring& s, const std::string&) {
    const std::string& text = s.raw();
    if (!text.ends_with('.'))
        return false;
    return is_roman_numeral(text.substr(0, text.size() - 1)) || std::atoi(text.c_str()) != 0;
}

bool is_cardinal_number(const Glib::ustring& s, const std::string&) {
    const std::string& text = s.raw();
    return is_roman_numeral(text) || std::atoi(text.c_str()) != 0 || convert_string_to_double(text) != 0.0;
}

} // namespace zelvor
