#include "training/analysis.h"

#include <json/json.h>

#include <algorithm>
#include <exception>
#include <functional>
#include <new>
#include <string_view>
#include <utility>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // Json::Reader: its rules of what is JSON are wanted

namespace zelvor {

namespace {

constexpr std::size_t MAX_GENERATION_BYTES = std::size_t{16} * 1024 * 1024;

Analysis extract(const Json::Value& root) {
    const Json::Value& lemma = root["ls"][0U];
    const Json::Value& id = lemma["wfs"][0U]["id"];
    if (id.isNull())
        return {};
    return {Analysis::Outcome::FOUND, id.asInt(), lemma["name"].asString()};
}

/// The JSON library tells it in two ways. No text is at fault then.
void throw_lack_of_memory(const std::exception& error) {
    if (dynamic_cast<const std::bad_alloc*>(&error) ||
        std::string_view(error.what()).find("Failed to allocate") != std::string_view::npos)
        throw std::bad_alloc();
}

Analysis parse(Json::Reader& json_reader, const std::string& json) {
    Json::Value root;
    try {
        if (!json_reader.parse(json, root))
            return {Analysis::Outcome::UNPARSABLE, 0, ""};
    } catch (const std::exception& error) { // nested too deeply
        throw_lack_of_memory(error);
        return {Analysis::Outcome::UNPARSABLE, 0, ""};
    }
    try {
        return extract(root);
    } catch (const std::exception& error) { // a member of another type
        throw_lack_of_memory(error);
        return {Analysis::Outcome::WRONG_SHAPE, 0, ""};
    }
}

} // namespace

void unwrap_analysis(std::string& json) {
    json.pop_back();
    json.erase(0, 1);
    std::ranges::transform(json, json.begin(), [](char c) { return c == '\'' ? '"' : c; }); // a loop of vector steps
}

AnalysisReader::AnalysisReader(Text text, std::size_t readers)
    : m_is_wrapped(text == Text::WRAPPED), m_max_bytes(MAX_GENERATION_BYTES / readers) {}

AnalysisReader::Known* AnalysisReader::Generation::find(std::size_t hash, const std::string& text) {
    const std::uint32_t number = index.find(
        hash, [&](std::uint32_t candidate) { return known[candidate].hash == hash && known[candidate].text == text; });
    return number == HashIndex::NONE ? nullptr : &known[number];
}

const Analysis& AnalysisReader::Generation::add(Known&& analysis) {
    bytes += analysis.text.size() + analysis.analysis.lemma.size() + sizeof(Known);
    known.push_back(std::move(analysis));
    index.add([&](std::uint32_t number) { return known[number].hash; });
    return known.back().analysis;
}

const Analysis& AnalysisReader::read(Json::Reader& json_reader, const std::string& text) {
    const std::size_t hash = std::hash<std::string_view>()(text);
    if (const Known* const known = m_recent.find(hash, text))
        return known->analysis;
    if (m_recent.bytes > m_max_bytes)
        m_former = std::exchange(m_recent, {});
    if (Known* const known = m_former.find(hash, text))
        return m_recent.add(Known(*known));
    std::string json = text;
    if (m_is_wrapped)
        unwrap_analysis(json);
    return m_recent.add({hash, text, parse(json_reader, json)});
}

} // namespace zelvor
