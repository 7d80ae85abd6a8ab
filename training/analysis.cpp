#include "training/analysis.h"

#include <json/json.h>

#include <algorithm>
#include <exception>
#include <functional>
#include <string_view>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // Json::Reader: its rules of what is JSON are wanted

namespace zelvor {

namespace {

constexpr std::size_t MAX_KNOWN_BYTES = std::size_t{32} * 1024 * 1024;

Analysis extract(const Json::Value& root) {
    const Json::Value& lemma = root["ls"][0U];
    const Json::Value& id = lemma["wfs"][0U]["id"];
    if (id.isNull())
        return {};
    return {Analysis::Outcome::FOUND, id.asInt(), lemma["name"].asString()};
}

Analysis parse(Json::Reader& json_reader, const std::string& json) {
    Json::Value root;
    try {
        if (!json_reader.parse(json, root))
            return {Analysis::Outcome::UNPARSABLE, 0, ""};
    } catch (const std::exception&) { // nested too deeply
        return {Analysis::Outcome::UNPARSABLE, 0, ""};
    }
    try {
        return extract(root);
    } catch (const std::exception&) { // a member of another type
        return {Analysis::Outcome::WRONG_SHAPE, 0, ""};
    }
}

} // namespace

void unwrap_analysis(std::string& json) {
    json.pop_back();
    json.erase(0, 1);
    std::ranges::transform(json, json.begin(), [](char c) { return c == '\'' ? '"' : c; }); // a loop of vector steps
}

const Analysis& AnalysisReader::read(Json::Reader& json_reader, const std::string& json) {
    const std::size_t hash = std::hash<std::string_view>()(json);
    const std::uint32_t number = m_index.find(
        hash, [&](std::uint32_t known) { return m_known[known].hash == hash && m_known[known].json == json; });
    if (number != HashIndex::NONE)
        return m_known[number].analysis;
    if (m_known_bytes > MAX_KNOWN_BYTES) {
        m_known.clear();
        m_index = HashIndex();
        m_known_bytes = 0;
    }
    m_known_bytes += json.size();
    m_known.push_back({hash, json, parse(json_reader, json)});
    m_index.add([&](std::uint32_t known) { return m_known[known].hash; });
    return m_known.back().analysis;
}

} // namespace zelvor
