#include "utils/logging_utils.h"

#include "tests/temporary_directory.h"

#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>
#include <log4cpp/SimpleLayout.hh>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <sstream>

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
    log4cpp::Category& category = log4cpp::Category::getInstance("LOCKED_TEST");
    std::ostringstream records;
    log4cpp::OstreamAppender appender("", &records);
    appender.setLayout(new log4cpp::SimpleLayout);
    category.setAdditivity(false);
    category.setAppender(appender);
    pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
    for (const int priority : {log4cpp::Priority::WARN, log4cpp::Priority::INFO, log4cpp::Priority::DEBUG}) {
        category.setPriority(priority);
        lu_lock_info_pthread("i%n", &category, &mutex);
        lu_lock_debug_pthread("d", &category, nullptr);
        lu_lock_info_pthread("silent", nullptr, &mutex);
        EXPECT_EQ(pthread_mutex_trylock(&mutex), 0);
        pthread_mutex_unlock(&mutex);
        records << "| ";
    }
    EXPECT_THAT(records.str(), testing::MatchesRegex("\\| INFO +: i%n\n\\| INFO +: i%n\nINFO +: d\n\\| "));
    category.removeAllAppenders();
}

} // namespace zelvor
