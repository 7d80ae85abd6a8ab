// The analysis JSON of a token: what is remembered is what a fresh reader finds, and that is what the JSON says.
#include "fuzz/fuzz.h"
#include "training/analysis.h"

#include <json/json.h>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // Json::Reader, as in the reader itself

namespace zelvor::fuzz {
namespace {

std::string as_text(const Analysis& analysis) {
    return std::to_string(static_cast<int>(analysis.outcome)) + " " + std::to_string(analysis.id) + " " +
           analysis.lemma;
}

/// Read step by step, each member tested before it is used.
std::string literal_reading(const std::string& json) {
    using Outcome = Analysis::Outcome;
    Json::Value value;
    try {
        Json::Reader reader;
        if (!reader.parse(json, value))
            return as_text({Outcome::UNPARSABLE, 0, ""});
    } catch (const std::exception&) {
        return as_text({Outcome::UNPARSABLE, 0, ""});
    }
    std::string lemma = "null";
    for (const char* const member : {"ls", "", "wfs", "", "id"}) {
        const bool is_array = *member == '\0';
        if (is_array ? !value.isArray() && !value.isNull() : !value.isObject() && !value.isNull())
            return as_text({Outcome::WRONG_SHAPE, 0, ""});
        if (value.isNull())
            return as_text({});
        const Json::Value next = is_array ? value.get(0U, {}) : value.get(member, {});
        if (std::string_view(member) == "wfs")
            lemma = value["name"].isConvertibleTo(Json::stringValue) ? "+" + value["name"].asString() : "";
        value = next;
    }
    if (value.isNull())
        return as_text({});
    if (!value.isConvertibleTo(Json::intValue) || lemma.empty())
        return as_text({Outcome::WRONG_SHAPE, 0, ""});
    return as_text({Outcome::FOUND, value.asInt(), lemma.substr(1)});
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    static Json::Reader json_reader;
    static zelvor::AnalysisReader reader;
    std::string json(reinterpret_cast<const char*>(data), size);
    if (!json.empty())
        zelvor::unwrap_analysis(json);
    const std::string expected = literal_reading(json);
    require_equal(as_text(reader.read(json_reader, json)), expected, "the analysis says what the JSON says");
    require_equal(as_text(reader.read(json_reader, json)), expected, "and so it does when it is remembered");
    return 0;
}
