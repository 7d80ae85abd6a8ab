#include "utils/common_utils/process.h"

#include "tests/temporary_directory.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

namespace zelvor {
namespace {

TEST(Process, ExecReturnsStandardOutput) {
    EXPECT_EQ(exec("printf 'a\\n\\nb'; exit 3"), "a\n\nb");
    EXPECT_EQ(exec("seq 10000 | tr -d '\\n'").size(), 9 + 180 + 2700 + 36000 + 5u);
    EXPECT_EQ(exec("printf 'ab\\0cd\\nef'"), "abef"); // the rest of a line is lost after a NUL
    rlimit files;
    getrlimit(RLIMIT_NOFILE, &files);
    const rlimit none{0, files.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const std::string output = exec("echo");
    setrlimit(RLIMIT_NOFILE, &files);
    EXPECT_EQ(output, "ERROR 24"); // too many open files
}

TEST(Process, EquivalentIgnoresAmountsOfWhiteSpace) {
    const TemporaryDirectory directory;
    testing::internal::CaptureStdout();
    EXPECT_TRUE(equivalent("a  b\n\nc", "a b\nc ", directory.path()));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\n");
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
    const std::int64_t elapsed = stop_time();
    EXPECT_GE(elapsed, 1'500'000);
    EXPECT_LT(elapsed, 60'000'000);
}

} // namespace
} // namespace zelvor
