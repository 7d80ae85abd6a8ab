#include "utils/options.h"

#include <gtest/gtest.h>

namespace zelvor {

TEST(Options, OnlyTheFirstMissingOneIsReported) {
    std::string ended[][2] = {{"a", "1"}, {"", ""}, {"b", ""}};
    std::string missing[][2] = {{"a", "1"}, {OPTION_RULE_FILENAME, ""}, {OPTION_MARKOV_XML_FILENAME, ""}, {"", ""}};
    testing::internal::CaptureStderr();
    EXPECT_TRUE(check_options(ended));
    EXPECT_FALSE(check_options(missing));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Option rule_directory is missing!\n");
}

} // namespace zelvor
