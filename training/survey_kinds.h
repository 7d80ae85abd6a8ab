#pragma once

#include "training/Survey.h"
#include "training/SurveyAdvice.h"
#include "training/SurveyResult.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zelvor {

/// Documents that one command reads.
struct DocumentKind {
    SurveyResult result;
    std::vector<std::string> documents; ///< in ascending order
};

/// Sorts documents by how their tokens are encoded, as far as no command reads both sorts: tags from a lexicon or from
/// attributes, from this attribute or that, in these sentences or those.
class SurveyKinds {
public:
    /// The survey is of this document alone.
    void add(const std::string& document, const Survey& survey);

    /// The kind with the most tokens first, each with a hundredth of all tokens at least; rarer ones count to the
    /// first. Documents with nothing to convert are in none.
    std::vector<DocumentKind> kinds() const;

private:
    struct Group {
        bool has_lexicon_json = false;
        TokenSource tags = TokenSource::TEXT;
        std::string sentence;
        std::vector<std::string> word;
        Survey survey;
        std::vector<std::string> documents;

        bool has_annotation_of(const Group& other) const {
            return has_lexicon_json == other.has_lexicon_json && tags == other.tags;
        }
    };
    static bool reads(const Group& group, const Group& other);
    static void merge(Group& group, const Group& behind);

    std::vector<Group> m_groups;
};

/// The shortest list of inputs that stands for the documents of one of these kinds: folders, at or below an input, of
/// whose documents all are of this kind, and documents.
std::vector<std::string> inputs_of(const DocumentKind& kind, const std::vector<DocumentKind>& kinds,
                                   const std::vector<std::string>& inputs);

} // namespace zelvor
