#include "training/survey_documents.h"

#include "training/Survey.h"
#include "training/shown_text.h"
#include "training/tei_inputs.h"

#include <utility>

#include <cstring>

namespace zelvor {

namespace {

struct Cancelled {};

} // namespace

DocumentsSurvey survey_documents(const SurveyTask& task, const SurveyObserver& observer) {
    DocumentsSurvey found;
    std::string document;
    const auto complain = [&](const std::string& place, const std::string& message) {
        ++found.faults;
        observer.complain(shown_path(place) + ": " + shown(message));
    };
    Survey survey(task.skip), all(task.skip);
    SurveyKinds kinds;
    XmlReader reader(survey, {[&](const XmlPlace& place, const std::string& message) {
                                  complain(to_string(place, document), message);
                              },
                              [&](const std::string& message) { complain(document, message); },
                              [&] {
                                  if (observer.cancelled.stop_requested())
                                      throw Cancelled();
                              }});
    const TeiInputs inputs = find_documents(task.inputs, task.hidden, [&](const std::string& folder, int error) {
        complain(folder, std::strerror(error));
    });
    if (inputs.documents.empty())
        observer.complain("no file whose name ends in .tei or .xml" + told_passed_over(inputs.passed_over));
    for (std::size_t i = 0; i < inputs.documents.size() && !observer.cancelled.stop_requested(); ++i) {
        const std::string& path = inputs.documents[i];
        document = path == "-" ? "standard input" : path;
        const std::size_t faults = found.faults;
        survey = Survey(task.skip);
        try {
            reader.read(path);
        } catch (const Cancelled&) {
            break;
        }
        if (i == 0)
            all = survey;
        else
            all.add(survey);
        kinds.add(path, survey);
        found.documents += found.faults == faults;
        observer.progress(i + 1, inputs.documents.size(), all.tokens());
    }
    found.result = all.result();
    found.kinds = kinds.kinds();
    return found;
}

std::vector<WayToConvert> ways_to_convert(const DocumentsSurvey& found, const SurveyTask& task) {
    std::vector<WayToConvert> ways;
    const auto add = [&](const SurveyResult& result, const std::vector<std::string>& inputs, std::size_t documents) {
        for (SurveyAdvice& advice : advise_each(result))
            if (advice.obstacle.empty())
                ways.push_back({std::move(advice), inputs, documents});
    };
    if (found.kinds.size() == 1 && advise(found.result).obstacle.empty())
        add(found.result, task.inputs, found.kinds[0].documents.size());
    else
        for (const DocumentKind& kind : found.kinds)
            add(kind.result, inputs_of(kind, found.kinds, task.inputs), kind.documents.size());
    return ways;
}

} // namespace zelvor
