#include "utils/logging_utils.h"

#include "tests/testing.h"

#include <unistd.h>

namespace zelvor {

TEST(Logging, ASecondSetUpReplacesTheFile) {
    const TemporaryDirectory directory;
    const std::string a = "../../.." + directory.write("a.log", "old"), b = "../../.." + directory.path("b.log");
    EXPECT_EQ(output_of([&] {
                  setup_logger(a, "LOGGING_TEST")->info("one %n"s);
                  setup_logger(b, "LOGGING_TEST")->debug("unseen"s);
              }),
              "log path: /var/log/zelvor/" + a + "\nlog path: /var/log/zelvor/" + b + "\n");
    log4cpp::Category& category = log4cpp::Category::getInstance("LOGGING_TEST");
    EXPECT_EQ(category.getAllAppenders().size(), 1u);
    category.removeAllAppenders();
    if (access("/var/log/zelvor", X_OK) != 0)
        GTEST_SKIP() << "what the files hold is not checked: /var/log/zelvor cannot be entered";
    EXPECT_THAT(directory.read("a.log"), testing::MatchesRegex("[0-9]+ INFO LOGGING_TEST : one %n\n"));
    EXPECT_EQ(directory.read("b.log"), "");
}

TEST(Logging, LockedMessagesCarryTheInfoLabel) {
    CapturedLog log;
    pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
    for (const int priority : {log4cpp::Priority::WARN, log4cpp::Priority::INFO, log4cpp::Priority::DEBUG}) {
        log.category.setPriority(priority);
        lu_lock_info_pthread("i%n", &log.category, &mutex);
        lu_lock_debug_pthread("d", &log.category, nullptr);
        lu_lock_info_pthread("silent", nullptr, &mutex);
        EXPECT_EQ(pthread_mutex_trylock(&mutex), 0);
        pthread_mutex_unlock(&mutex);
        log.records << "| ";
    }
    const char* const info = "[0-9]+ INFO CAPTURED_LOG : ";
    EXPECT_THAT(log.records.str(),
                testing::MatchesRegex(std::string("\\| ") + info + "i%n\n\\| " + info + "i%n\n" + info + "d\n\\| "));
}

} // namespace zelvor
