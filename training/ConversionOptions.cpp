#include "training/ConversionOptions.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace zelvor {

namespace {

/// By kind.
constexpr std::string_view NAMES[] = {"form",   "lemma",        "pos",    "upos",      "feats",
                                      "case",   "degree",       "gender", "mood",      "number",
                                      "person", "pronoun_type", "tense",  "verb_type", "voice"};
static_assert(std::size(NAMES) == static_cast<std::size_t>(Column::Kind::OTHER));

} // namespace

Column::Column(std::string_view text) : name(text) {
    if (text.starts_with('@')) {
        kind = Kind::OTHER;
        name = text.substr(1);
        if (name == "text")
            throw std::invalid_argument("'@text': the text of a token is its form");
        source.emplace_back(name);
        return;
    }
    const auto* const found = std::ranges::find(NAMES, text);
    if (found == std::end(NAMES))
        throw std::invalid_argument(
            "'" + name +
            "' is no column; columns are form, lemma, pos, upos, feats, @ATTRIBUTE, and with a lexicon "
            "case, degree, gender, mood, number, person, tense, voice, pronoun_type and "
            "verb_type");
    kind = static_cast<Kind>(found - std::begin(NAMES));
}

std::string on_command_line(std::string_view option) { return option == "lexicon" ? "-l" : "--" + std::string(option); }

void ConversionOptions::choose_conllu() {
    format = Format::CONLLU;
    columns = read_columns("form,lemma,upos,pos,feats");
    nfc = true;
}

std::vector<Column> read_columns(std::string_view names) {
    std::vector<Column> columns;
    for (const std::string_view name : split_list(names)) {
        Column column(name);
        if (std::ranges::any_of(
                columns, [&](const Column& known) { return known.kind == column.kind && known.name == column.name; }))
            throw std::invalid_argument("column '" + std::string(name) + "' is there twice");
        column.other = static_cast<std::size_t>(std::ranges::count(columns, Column::Kind::OTHER, &Column::kind));
        columns.push_back(std::move(column));
    }
    return columns;
}

} // namespace zelvor
