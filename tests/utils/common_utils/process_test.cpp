#include "utils/common_utils/process.h"

#include "tests/captured_log.h"
#include "tests/temporary_directory.h"

#include <csignal>

namespace zelvor {

TEST(Process, ExecReturnsStandardOutput) {
    EXPECT_EQ(exec("printf 'a\\n\\nb'; exit 3"), "a\n\nb");
    EXPECT_EQ(exec("seq 10000 | tr -d '\\n'").size(), 9 + 180 + 2700 + 36000 + 5u);
    EXPECT_EQ(exec("printf 'ab\\0cd\\nef'"), std::string("ab\0cd\nef", 8));
    struct sigaction action {}; // without SA_RESTART, so that the alarm interrupts what waits
    action.sa_handler = [](int) {};
    sigaction(SIGALRM, &action, nullptr);
    const itimerval every{{0, 10'000}, {0, 10'000}}, never{};
    setitimer(ITIMER_REAL, &every, nullptr);
    EXPECT_EQ(exec("echo first; sleep 0.1; echo second"), "first\nsecond\n");
    setitimer(ITIMER_REAL, &never, nullptr);
    std::signal(SIGALRM, SIG_DFL);
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
