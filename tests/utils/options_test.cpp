#include "utils/options.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

TEST(Options, OnlyTheFirstMissingOneIsReported) {
    std::string all[][2] = {{"a", "1"}, {"b", "2"}, {"", ""}};
    std::string missing[][2] = {{"a", "1"}, {OPTION_RULE_FILENAME, ""}, {OPTION_MARKOV_XML_FILENAME, ""}, {"", ""}};
    std::string ended[][2] = {{"", "x"}, {"a", ""}};
    testing::internal::CaptureStderr();
    EXPECT_TRUE(check_options(all));
    EXPECT_TRUE(check_options(ended));
    EXPECT_TRUE(check_options(nullptr));
    EXPECT_FALSE(check_options(missing));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Option rule_directory is missing!\n");
}

} // namespace
} // namespace zelvor
