#include "utils/options.h"

#include "tests/testing.h"

namespace zelvor {

TEST(Options, TwoTextsDifferFromTheirNamesAndTheFirstMissingOptionIsTold) {
    EXPECT_EQ(OPTION_RULE_FILENAME + ' ' + OPTION_MARKOV_XML_FILENAME, "rule_directory xml_markov_filename");
    std::string options[][2] = {{"a", "1"}, {"b", ""}, {"c", ""}, {"", ""}};
    testing::internal::CaptureStderr();
    EXPECT_FALSE(check_options(options));
    EXPECT_TRUE(check_options(options + 3));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Option b is missing!\n");
}

} // namespace zelvor
