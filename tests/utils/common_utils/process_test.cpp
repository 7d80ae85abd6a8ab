#include "utils/common_utils/process.h"

#include "tests/testing.h"

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
    const std::string output = output_of([&] { EXPECT_FALSE(equivalent("a b", "ab", directory.path())); });
    EXPECT_THAT(output, testing::HasSubstr("file2.txt differ\n\n"));
    output_of([&] { EXPECT_FALSE(equivalent("a", "a", directory.path("missing"))); });
}

TEST(Process, StopwatchCountsMicroseconds) {
    start_time();
    seconds -= 1000;
    microseconds += 500'000; // as if started 999.5 seconds ago
    timespec pause{0, 20'000'000};
    nanosleep(&pause, nullptr);
    const std::int64_t passed = stop_time();
    EXPECT_GE(passed, 999'520'000);
    EXPECT_LT(passed, 1'100'000'000);
}

} // namespace zelvor
