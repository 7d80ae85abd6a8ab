#include "utils/common_utils/text.h"
#include "python/bindings.h"
#include "python/locks.h"
#include "utils/common_utils/case.h"
#include "utils/common_utils/distance.h"
#include "utils/lexicon_utils/word_classes.h"

#include <map>

namespace zelvor::python {

namespace {

Text normalize_case(const Text& text, const Text& to) {
    using Convert = std::string (*)(const std::string&);
    static const std::map<std::string, Convert> conversions{
        {"lower", [](const std::string& s) { return convert_lowercase(s); }},
        {"upper", [](const std::string& s) { return convert_uppercase(s); }},
        {"title", [](const std::string& s) { return capitalize_multi_token_expression(s).raw(); }},
        {"capitalized", [](const std::string& s) { return capitalize_first_unicode(s); }},
        {"uncapitalized", [](const std::string& s) { return downcase_first_unicode(s); }},
    };
    const auto conversion = conversions.find(to.bytes);
    if (conversion == conversions.end())
        throw py::value_error("no case: " + described(to_str(to.bytes)) +
                              "; lower, upper, title, capitalized and uncapitalized are known");
    return {conversion->second(text.bytes)};
}

struct Recogniser {
    const char* name;
    bool (*test)(const std::string& text);
    const char* doc;
};

const Recogniser RECOGNISERS[] = {
    {"is_noun", is_noun, "Whether a tag is one of NE, NP, N, NN.\n\n>>> is_noun('NN')\nTrue\n"},
    {"is_adjective", is_adjective, "Whether a tag is one of JJ, ADJ.\n\n>>> is_adjective('NN')\nFalse\n"},
    {"is_verb", is_verb, "Whether a tag is one of V, VB.\n\n>>> is_verb('V')\nTrue\n"},
    {"is_modal", is_modal, "Whether a lemma is an English modal verb.\n\n>>> is_modal('must')\nTrue\n"},
    {"contains_latin_letters", [](const std::string& s) { return contains_latin_characters(s); },
     "Whether a text holds an ASCII letter.\n\n>>> contains_latin_letters('α1')\nFalse\n"},
    {"contains_letters", [](const std::string& s) { return contains_alpha(s); },
     "Whether a text holds a letter of any script.\n\n>>> contains_letters('α1')\nTrue\n"},
    {"is_roman_numeral", [](const std::string& s) { return is_latin_number(s); },
     "Whether a text is a Roman numeral, in either case. The empty text is one; what ends in IV is none.\n\n"
     ">>> is_roman_numeral('XII'), is_roman_numeral('IV')\n(True, False)\n"},
    {"is_ordinal_number", [](const std::string& s) { return is_odinal_number(s, ""); },
     "Whether a text is a number or a Roman numeral with a period behind.\n\n>>> is_ordinal_number('3.')\nTrue\n"},
    {"is_cardinal_number", [](const std::string& s) { return is_cardinal_number(s, ""); },
     "Whether a text is a Roman numeral, or begins with a number other than 0.\n\n>>> "
     "is_cardinal_number('12')\nTrue\n"},
};

} // namespace

void bind_text(py::module_& module) {
    using WithoutLock = py::call_guard<Unlocked>;
    module.def(
        "edit_distance",
        [](const Text& a, const Text& b, bool exchanges) { return levenshtein_distance(a.bytes, b.bytes, exchanges); },
        py::arg("a"), py::arg("b"), py::kw_only(), py::arg("exchanges") = false, WithoutLock(),
        R"(edit_distance(a, b, *, exchanges=False)
--

The least number of letters to put in, take out or replace that make b of a.

With exchanges, one of two neighbours counts 1 as well, where both texts are compared at the same place. Time is the
product of the lengths.

>>> edit_distance("agricola", "agricela")
1
)");
    module.def("normalize_case", &normalize_case, py::arg("text"), py::arg("to") = "lower",
               R"(normalize_case(text, to='lower')
--

The text in lower or upper case, or with the first letter (title: of every word) changed.

to is lower, upper, title, capitalized or uncapitalized. A result may be longer than the text.

>>> normalize_case("GALLIA"), normalize_case("gallia est", "title")
('gallia', 'Gallia Est')
)");
    for (const Recogniser& recogniser : RECOGNISERS)
        module.def(
            recogniser.name, [test = recogniser.test](const Text& text) { return test(text.bytes); }, py::arg("text"),
            (std::string(recogniser.name) + "(text)\n--\n\n" + recogniser.doc).c_str());
}

} // namespace zelvor::python
