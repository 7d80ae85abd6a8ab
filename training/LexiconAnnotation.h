#pragma once

#include "training/ConversionOptions.h"
#include "training/TagLexicon.h"
#include "training/TagMap.h"
#include "training/Token.h"
#include "training/TokenAttributes.h"
#include "training/analysis.h"

#include <json/reader.h>

#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// Annotates tokens from a lexicon, by the word-form ids in the JSON of their analyses.
class LexiconAnnotation {
public:
    /// All references must live as long as this; the map may be null. What is remembered of analyses is a share of
    /// what one of so many jobs may remember.
    LexiconAnnotation(const ConversionOptions& options, const TagLexicon& lexicon, const TagMap* map, std::size_t jobs);

    /// The results are valid until the next call. `analysis` is what is in the lemma attribute, and
    /// `told_analysis` what is told of it, where tokens are.
    const Token& annotate_word(std::string_view text, const std::string& analysis, const std::string& told_analysis,
                               const TokenAttributes& attributes);
    const Token& annotate_punctuation(std::string_view text, const TokenAttributes& attributes);

private:
    Token& begin(std::string_view text);
    void read_analysis(std::string_view text, const std::string& analysis, const std::string& told);
    void set_form(std::string_view text, std::string_view lemma);
    const Token& complete(const TokenAttributes& attributes);

    const ConversionOptions& m_options;
    const TagLexicon& m_lexicon;
    const TagMap* m_map;
    AnalysisReader m_analysis_reader;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    Json::Reader m_json_reader;
#pragma GCC diagnostic pop
    Token m_token;
    std::string m_form, m_lemma, m_pos, m_detail;
    std::vector<std::string> m_others;
};

} // namespace zelvor
