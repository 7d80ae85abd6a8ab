#include "training/report_json.h"

#include "training/shown_text.h"

#include <json/json.h>

#include <utility>

namespace zelvor {

namespace {

using Count = ConversionReport::Count;

Json::Value place_json(const ReportContents& contents, std::uint32_t document, std::string_view file, long line) {
    Json::Value place;
    place["document"] = contents.file(document, file);
    place["line"] = Json::Int64{line};
    return place;
}

Json::Value summary_of(const ConversionStatistics::Frequent& frequent) {
    Json::Value summary;
    summary["distinct"] = Json::UInt64{frequent.distinct};
    summary["error"] = Json::UInt64{frequent.error};
    summary["exact"] = frequent.is_exact();
    summary["most_frequent"] = Json::arrayValue;
    return summary;
}

Json::Value tags_json(const ReportContents& contents) {
    const auto tags = contents.statistics.frequent(ConversionStatistics::TAG, ReportContents::MAX_TAGS);
    Json::Value json = summary_of(tags);
    json["column"] = shown(contents.tag_column);
    for (const FrequentTexts::Text& tag : tags.texts) {
        Json::Value row;
        row["tag"] = shown_counted(tag);
        row["tokens"] = Json::UInt64{tag.count};
        json["most_frequent"].append(std::move(row));
    }
    return json;
}

Json::Value tokens_json(const ReportContents& contents, Count reason) {
    const auto tokens = contents.statistics.frequent(reason, ReportContents::MAX_TOKENS);
    Json::Value json = summary_of(tokens);
    for (const FrequentTexts::Text& token : tokens.texts) {
        Json::Value row = place_json(contents, token.place.document, token.place.file, token.place.line);
        row["token"] = shown_counted(token);
        row["tokens"] = Json::UInt64{token.count};
        json["most_frequent"].append(std::move(row));
    }
    return json;
}

Json::Value documents_json(const ReportContents& contents) {
    Json::Value json;
    json["with_losses"] = Json::UInt64{contents.statistics.documents_with_losses()};
    json["worst"] = Json::arrayValue;
    for (const auto& [number, report] : contents.statistics.worst()) {
        Json::Value row;
        row["document"] = contents.document(number);
        row["failed"] = report[ConversionReport::FILES_FAILED] > 0;
        row["written"] = Json::UInt64{report[ConversionReport::TOKENS_WRITTEN]};
        row["left_out"] = Json::objectValue;
        for (const Count reason : report.reasons())
            row["left_out"][key_of(reason)] = Json::UInt64{report[reason]};
        json["worst"].append(std::move(row));
    }
    return json;
}

void add_lengths(const ReportContents& contents, Json::Value& json) {
    const StatisticsSums& sums = contents.statistics.sums();
    json["lengths"] = Json::arrayValue;
    for (std::size_t i = 0; i < SENTENCE_LENGTHS.size(); ++i) {
        Json::Value row;
        row["from"] = SENTENCE_LENGTHS[i];
        row["sentences"] = Json::UInt64{sums.lengths[i]};
        json["lengths"].append(std::move(row));
    }
    if (const auto& [tokens, document, begin] = sums.longest; tokens > 0) {
        json["longest"] = place_json(contents, document, begin.file, begin.line);
        json["longest"]["tokens"] = Json::UInt64{tokens};
    }
}

} // namespace

std::string report_json(const ReportContents& contents) {
    Json::Value root = contents.report.json();
    root["status"] = contents.status;
    root["documents"] = documents_json(contents);
    root["tags"] = tags_json(contents);
    root["left_out_tokens"] = Json::objectValue;
    for (const Count reason : contents.report.reasons())
        root["left_out_tokens"][key_of(reason)] = tokens_json(contents, reason);
    add_lengths(contents, root["sentences"]);
    Json::StreamWriterBuilder format;
    format["indentation"] = "  ";
    return Json::writeString(format, root) + "\n";
}

} // namespace zelvor
