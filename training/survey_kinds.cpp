#include "training/survey_kinds.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

namespace zelvor {

namespace {

constexpr std::size_t MAX_GROUPS = 20;
constexpr std::uint64_t TOO_LONG = 3; ///< times as long as a sentence

const SurveyResult::EnclosingElement* find_enclosing(const SurveyResult& result, const std::string& name) {
    const auto found = std::ranges::find(result.enclosing, name, &SurveyResult::EnclosingElement::name);
    return found == result.enclosing.end() ? nullptr : &*found;
}

/// Calls a function with each folder of a path that is one of these or below it, the outermost first.
template<typename Use>
void for_each_folder(const std::string& path, const std::set<std::string>& inputs, Use use) {
    bool is_below = false;
    for (std::size_t end = path.find('/'); end != std::string::npos; end = path.find('/', end + 1)) {
        const std::string folder = path.substr(0, std::max<std::size_t>(end, 1));
        is_below = is_below || inputs.contains(folder);
        if (is_below)
            use(folder);
    }
}

std::set<std::string> without_last_slashes(const std::vector<std::string>& paths) {
    std::set<std::string> bare;
    for (std::string path : paths) {
        while (path.size() > 1 && path.ends_with('/'))
            path.pop_back();
        bare.insert(std::move(path));
    }
    return bare;
}

} // namespace

void SurveyKinds::add(const std::string& document, const Survey& survey) {
    const SurveyResult result = survey.result();
    const SurveyAdvice advice = advise(result);
    if (!advice.obstacle.empty())
        return;
    Group group{advice.has_lexicon_json,
                advice.tags,
                advice.sentence ? advice.sentence->name : "",
                advice.word,
                survey,
                {document}};
    auto found = std::ranges::find_if(m_groups, [&](const Group& known) {
        return known.has_annotation_of(group) && known.sentence == group.sentence && known.word == group.word;
    });
    if (found == m_groups.end() && m_groups.size() == MAX_GROUPS)
        found = std::ranges::find_if(m_groups, [&](const Group& known) { return known.has_annotation_of(group); });
    if (found != m_groups.end())
        merge(*found, group);
    else if (m_groups.size() < MAX_GROUPS)
        m_groups.push_back(std::move(group));
    else
        merge(m_groups.back(), group);
}

void SurveyKinds::merge(Group& group, const Group& behind) {
    group.survey.add(behind.survey);
    group.documents.insert(group.documents.end(), behind.documents.begin(), behind.documents.end());
}

/// Whether the command of one reads nearly all of the other, in sentences that are not much longer.
bool SurveyKinds::reads(const Group& group, const Group& other) {
    const bool has_its_words =
        group.word == other.word || std::ranges::find_first_of(group.word, other.word) != group.word.end();
    if (!group.has_annotation_of(other) || !has_its_words)
        return false;
    const SurveyResult result = other.survey.result();
    const auto* const sentence = find_enclosing(result, group.sentence);
    const auto* const own = find_enclosing(result, other.sentence);
    return sentence && own && sentence->tokens * 10 >= own->tokens * 9 && sentence->median <= own->median * TOO_LONG;
}

std::vector<DocumentKind> SurveyKinds::kinds() const {
    const auto sort = [](std::vector<Group>& groups) {
        std::ranges::stable_sort(groups, std::greater<>(), [](const Group& group) { return group.survey.tokens(); });
    };
    std::vector<Group> groups = m_groups, merged;
    sort(groups);
    std::uint64_t tokens = 0;
    for (const Group& group : groups)
        tokens += group.survey.tokens();
    for (Group& group : groups) {
        auto found = std::ranges::find_if(merged, [&](const Group& known) { return reads(known, group); });
        if (found == merged.end() && !merged.empty() && group.survey.tokens() * 100 < tokens)
            found = merged.begin();
        if (found == merged.end())
            merged.push_back(std::move(group));
        else
            merge(*found, group);
    }
    sort(merged);
    std::vector<DocumentKind> kinds;
    for (Group& group : merged) {
        std::ranges::sort(group.documents);
        kinds.push_back({group.survey.result(), std::move(group.documents)});
    }
    return kinds;
}

std::vector<std::string> inputs_of(const DocumentKind& kind, const std::vector<DocumentKind>& kinds,
                                   const std::vector<std::string>& inputs) {
    const std::set<std::string> folders = without_last_slashes(inputs);
    std::set<std::string> mixed; // folders that hold documents of another kind, too
    for (const DocumentKind& other : kinds)
        if (&other != &kind)
            for (const std::string& document : other.documents)
                for_each_folder(document, folders, [&](const std::string& folder) { mixed.insert(folder); });
    std::vector<std::string> shortest;
    for (const std::string& document : kind.documents) {
        std::string chosen = folders.contains(document) ? document : ""; // which its folder might not find
        for_each_folder(document, folders, [&](const std::string& folder) {
            if (chosen.empty() && !mixed.contains(folder))
                chosen = folder;
        });
        if (chosen.empty())
            chosen = document;
        if (shortest.empty() || shortest.back() != chosen)
            shortest.push_back(std::move(chosen));
    }
    return shortest;
}

} // namespace zelvor
