#include "training/DocumentStatistics.h"

#include "training/Sentences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace zelvor {

namespace {

/// A sentence of so many tokens, each with a tag of its own.
class Tags : public SentenceFormat {
public:
    TokenOutcome add(const Token& /*token*/) override { return {}; }
    std::string take_some() override { return {}; }
    std::string_view end() override { return {}; }
    std::optional<WrittenToken> next(std::size_t& position) const override {
        if (position == size)
            return std::nullopt;
        text = std::to_string(position++);
        return WrittenToken{"form", text};
    }
    void clear() override { size = 0; }

    std::size_t size = 0;
    mutable std::string text;
};

struct Parts : ConversionSink {
    void write(std::string_view, std::uint64_t) override {}
    void fault(const std::string&, const XmlPlace&, const std::string&) override {}
    void left_out(ConversionReport::Count, const std::string&, const XmlPlace&, const std::string&) override {}
    void count(StatisticsPart&& part) override {
        ++parts;
        for (const FrequentTexts::Text& tag : part.texts.most_frequent(ConversionStatistics::TAG)) {
            tags += tag.count;
            most = std::max(most, tag.count);
        }
    }

    std::uint64_t parts = 0, tags = 0, most = 0;
};

} // namespace

TEST(DocumentStatistics, TakesNothingBackThatHasGoneAndIsCertain) {
    constexpr std::size_t tokens = 6000; // more than a document keeps
    for (const bool is_certain : {false, true}) {
        Tags tags;
        Parts parts;
        DocumentStatistics statistics(tags, [] { return XmlPlace(); });
        statistics.begin_document(parts);
        while (tags.size < tokens) {
            const std::string tag = std::to_string(tags.size++);
            statistics.add(tag, is_certain);
        }
        for (std::size_t i = 0; i < tokens; ++i)
            statistics.leave_out(ConversionReport::NO_TAG, std::to_string(i));
        statistics.write(tokens, 0, 1);
        statistics.end_document();
        EXPECT_GT(parts.parts, 3U);
        EXPECT_EQ(parts.tags, tokens) << is_certain;
        EXPECT_EQ(parts.most, 1U) << is_certain;
    }
}

} // namespace zelvor
