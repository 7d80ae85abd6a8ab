#pragma once

#include "training/ValueSource.h"
#include "training/universal_features.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// A column of training lines.
struct Column {
    enum class Kind {
        FORM,
        LEMMA,
        POS,
        UPOS,
        FEATS,
        FIRST_CATEGORY, ///< of a lexicon; the others follow
        OTHER = FIRST_CATEGORY + NUM_CATEGORIES,
    };

    /// "form", "lemma", "pos", "upos", "feats", "case" and such, or "@" and a source. Throws std::invalid_argument,
    /// which says why.
    explicit Column(std::string_view text);

    bool is_category() const { return kind >= Kind::FIRST_CATEGORY && kind < Kind::OTHER; }
    Category category() const {
        return static_cast<Category>(static_cast<int>(kind) - static_cast<int>(Kind::FIRST_CATEGORY));
    }

    Kind kind = Kind::FORM;
    std::string name;                ///< without "@"
    std::vector<ValueSource> source; ///< one for OTHER, otherwise none
    std::size_t other = 0;           ///< the how manieth of the OTHER columns it is, from 0
};

/// Columns by their names, separated by commas, each once. Throws std::invalid_argument, which says why.
std::vector<Column> read_columns(std::string_view names);

/// "--whole-sentences" of "whole-sentences"; the lexicon by its letter.
std::string on_command_line(std::string_view option);

/// What is to be read of the documents of a conversion, and how it is to be written.
struct ConversionOptions {
    enum class BadToken { DROP, REPLACE, FAIL };
    enum class Format {
        COLUMNS,
        CONLLU,
        TOKENS, ///< of a SentenceFormat that is not ours, as they are
    };
    using Names = std::vector<std::string>;

    bool has_lexicon = false; ///< tags come from it, by the JSON of analyses; otherwise from attributes

    Names sentence{"s"};
    Names word{"w"};
    Names punctuation; ///< empty: pc and c, with a lexicon c alone
    Names skip{"note", "fw", "del", "gap", "teiHeader"};
    bool original_choice = false; ///< of a choice, what the source has counts, not what the editor made of it
    std::string break_marks;      ///< each character ends the sentence behind a token that is nothing else

    ValueSources form{"text,norm", ValueSources::Use::FORM};
    ValueSources lemma{"lemma", ValueSources::Use::OTHER};
    ValueSources pos{"pos,ana,msd:UPosTag,type", ValueSources::Use::OTHER};
    ValueSources upos{"msd:UPosTag", ValueSources::Use::OTHER};
    ValueSources feats{"msd", ValueSources::Use::FEATS};
    std::string punctuation_tag = "PUNCT";

    Format format = Format::COLUMNS;
    std::vector<Column> columns = read_columns("form,pos");
    char separator = ' ';
    bool header = false;
    BadToken on_bad_token = BadToken::DROP;
    bool whole_sentences = false;
    bool nfc = false;

    /// With the columns and the normal form that it has.
    void choose_conllu();

    bool strict = false;  ///< stop at the first fault, analyses that are no JSON or JSON of another shape included
    bool verbose = false; ///< tell each token that is left out

    std::string (*spelt)(std::string_view option) = on_command_line; ///< how messages name one

    Names punctuation_elements() const {
        return !punctuation.empty() ? punctuation : has_lexicon ? Names{"c"} : Names{"pc", "c"};
    }
};

} // namespace zelvor
