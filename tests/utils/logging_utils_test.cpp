#include "utils/logging_utils.h"

#include "tests/testing.h"

#include <unistd.h>

namespace zelvor {

TEST(Logging, ASecondSetUpReplacesTheFile) {
    const TemporaryDirectory directory;
    const std::string a = "../../.." + directory.path("a.log"), b = "../../.." + directory.path("b.log");
    directory.write("a.log", "old");
    testing::internal::CaptureStdout();
    log4cpp::Category* category = setup_logger(a, "LOGGING_TEST");
    category->info(std::string("one %n"));
    category->debug(std::string("unseen"));
    EXPECT_EQ(setup_logger(b, "LOGGING_TEST"), category);
    category->info(std::string("two"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "log path: /var/log/zelvor/" + a + "\nlog path: /var/log/zelvor/" + b + "\n");
    EXPECT_EQ(category->getAllAppenders().size(), 1u);
    category->removeAllAppenders();
    if (access("/var/log/zelvor", X_OK) != 0)
        GTEST_SKIP() << "what the files hold is not checked: /var/log/zelvor cannot be entered";
    EXPECT_THAT(directory.read("a.log"), testing::MatchesRegex("[0-9]+ INFO LOGGING_TEST : one %n\n"));
    EXPECT_THAT(directory.read("b.log"), testing::MatchesRegex("[0-9]+ INFO LOGGING_TEST : two\n"));
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
