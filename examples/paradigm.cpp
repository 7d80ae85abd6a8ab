#include "utils/LexicalEntry.h"

#include <iostream>

/// Applies rows of two tables to lemmas and prints the forms with their categories, then one as a lexicon line.
int main() {
    zelvor::ConjugationEntry verb_rows[] = {
        // person, singular, tense, mood, active, suffix, stem, part of speech, gender, case
        {1, true, zelvor::present, zelvor::indicative, true, "o", 1, "V", zelvor::gnone, zelvor::none},
        {3, false, zelvor::present, zelvor::indicative, false, "antur", 1, "V", zelvor::gnone, zelvor::none},
        {3, true, zelvor::perfect, zelvor::indicative, true, "it", 2, "V", zelvor::gnone, zelvor::none},
    };
    for (auto& row : verb_rows) {
        const zelvor::LexicalEntry form(&row, "amo", {"am", "amav"}, "FIRST", "");
        std::cout << form.get_word_form() << ": " << form.get_person() << ' ' << form.get_number() << ' '
                  << form.get_tense() << ' ' << form.get_voice() << '\n';
    }

    zelvor::DeclensionEntry noun_row{zelvor::genitive, false, "arum", 1, zelvor::feminine};
    zelvor::LexicalEntry form(&noun_row, "poeta", {"poet"}, "FIRST", "MASCULINE", "NN", "");
    std::cout << form.get_word_form() << ": " << form.get_case() << ' ' << form.get_number() << ' ' << form.get_gender()
              << '\n';
    form.export_latin(std::cout);
    return 0;
}
