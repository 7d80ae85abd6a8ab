// The analysis JSON of a token: what a reader remembers, and what it reads after other inputs, is what a fresh one
// reads.
#include "fuzz/fuzz.h"
#include "training/analysis.h"

#include <json/json.h>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // Json::Reader, as in the reader itself

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor;
    static Json::Reader used_json_reader;
    static AnalysisReader used;
    const auto as_text = [](const Analysis& analysis) {
        return std::to_string(static_cast<int>(analysis.outcome)) + " " + std::to_string(analysis.id) + " " +
               analysis.lemma;
    };
    std::string json(reinterpret_cast<const char*>(data), size);
    if (!json.empty())
        unwrap_analysis(json);
    Json::Reader json_reader;
    AnalysisReader fresh;
    const std::string expected = as_text(fresh.read(json_reader, json));
    for (int i = 0; i < 2; ++i)
        fuzz::require_equal(as_text(used.read(used_json_reader, json)), expected, "no state is left");
    return 0;
}
