#pragma once

#include "training/SurveyResult.h"

#include <string>
#include <vector>

namespace zelvor {

/// Which options make training data of the documents of a survey. What is empty fits by default.
struct SurveyAdvice {
    /// Why there is no training data in them; empty: there is.
    std::string obstacle;

    bool has_lexicon_json = false;        ///< tags come from a lexicon, by the JSON in lemmas
    TokenSource tags = TokenSource::TEXT; ///< where they come from otherwise, the most at least; TEXT: nowhere
    std::uint64_t tokens = 0, words = 0;  ///< that it is about
    std::vector<std::string> word, punctuation;
    const SurveyResult::EnclosingElement* sentence = nullptr; ///< of the result; null: nothing encloses tokens
    std::string break_marks;                                  ///< the sentence holds several that end with these
    std::string form, lemma, pos, upos, feats, columns;

    /// "--sentence=ab" and such, without LEXICON.
    std::vector<std::string> options() const;
};

/// The result must live as long as the advice.
SurveyAdvice advise(const SurveyResult& result);

/// One, or two where words with the JSON of a lexicon's ids and words with other annotation are a hundredth of these
/// each: first that for the more frequent ones.
std::vector<SurveyAdvice> advise_each(const SurveyResult& result);

/// What advise() knows, for those who are told that nothing of it was there.
std::string looked_for();

} // namespace zelvor
