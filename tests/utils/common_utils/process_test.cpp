#include "utils/common_utils/process.h"

#include "tests/testing.h"

namespace zelvor {

TEST(Process, ExecReturnsStandardOutput) {
    EXPECT_EQ(exec("printf 'a\\n\\nb'; exit 3"), "a\n\nb");
    EXPECT_EQ(exec("seq 10000 | tr -d '\\n'").size(), 9 + 180 + 2700 + 36000 + 5u);
    EXPECT_EQ(exec("printf 'ab\\0cd\\nef'"), "abef"); // the rest of a line is lost after a NUL
}

TEST(Process, EquivalentIgnoresAmountsOfWhiteSpace) {
    const TemporaryDirectory directory;
    EXPECT_EQ(output_of([&] { EXPECT_TRUE(equivalent("a  b\n\nc", "a b\nc ", directory.path())); }), "\n");
    EXPECT_EQ(directory.read("file1.txt") + directory.read("file2.txt"), "a  b\n\nc\na b\nc \n");
    testing::internal::CaptureStdout();
    EXPECT_FALSE(equivalent("a b", "ab", directory.path()));
    EXPECT_FALSE(equivalent("a", "a", directory.path("missing")));
    EXPECT_NE(testing::internal::GetCapturedStdout().find("file2.txt differ\n\n"), std::string::npos);
}

TEST(Process, StopwatchCountsMicroseconds) {
    start_time();
    seconds -= 2;
    microseconds += 500'000; // as if started one second and a half ago
    EXPECT_NEAR(static_cast<double>(stop_time()), 1.5e6, 1.4e6);
}

} // namespace zelvor
