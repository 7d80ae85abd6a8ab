#include "utils/logging_utils.h"

#include "tests/temporary_directory.h"

#include <log4cpp/Category.hh>
#include <log4cpp/LayoutAppender.hh>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelvor {
namespace {

TEST(Logging, ASecondSetUpReplacesTheFile) {
    const TemporaryDirectory directory;
    const std::string outside = "../../.."; // out of the log directory into our own
    directory.write("a.log", "old");
    testing::internal::CaptureStdout();
    log4cpp::Category* category = setup_logger(outside + directory.path("a.log"), "LOGGING_TEST");
    category->info(std::string("one %n"));
    category->debug(std::string("unseen"));
    EXPECT_EQ(setup_logger(outside + directory.path("b.log"), "LOGGING_TEST"), category);
    category->info(std::string("two"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "log path: /var/log/zelvor/../../.." + directory.path("a.log") +
                                                          "\nlog path: /var/log/zelvor/../../.." +
                                                          directory.path("b.log") + "\n");
    EXPECT_EQ(category->getAllAppenders().size(), 1u);
    EXPECT_EQ(category->getAppender()->getName(), "FileAppender");
    EXPECT_EQ(category->getPriority(), 600);
    EXPECT_FALSE(category->getAdditivity());
    category->removeAllAppenders();
    if (!std::filesystem::exists("/var/log/zelvor"))
        GTEST_SKIP() << "what the files hold is not checked: /var/log/zelvor is missing";
    EXPECT_THAT(directory.read("a.log"), testing::MatchesRegex("[0-9]+ INFO LOGGING_TEST : one %n\n"));
    EXPECT_THAT(directory.read("b.log"), testing::MatchesRegex("[0-9]+ INFO LOGGING_TEST : two\n"));
}

pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;

bool is_locked() {
    const bool locked = pthread_mutex_trylock(&mutex) != 0;
    if (!locked)
        pthread_mutex_unlock(&mutex);
    return locked;
}

struct Recorder : log4cpp::LayoutAppender {
    explicit Recorder(std::string& records) : LayoutAppender("Recorder"), m_records(records) {}
    void close() override {}
    void _append(const log4cpp::LoggingEvent& event) override {
        m_records +=
            log4cpp::Priority::getPriorityName(event.priority) + " " + event.message + (is_locked() ? "!" : "");
    }
    std::string& m_records;
};

TEST(Logging, LockedMessagesCarryTheInfoLabel) {
    const std::pair<log4cpp::Priority::Value, std::string> rows[] = {
        {log4cpp::Priority::WARN, ""},
        {log4cpp::Priority::INFO, "INFO i%n!INFO i"},
        {log4cpp::Priority::DEBUG, "INFO i%n!INFO iINFO d!INFO d"}};
    log4cpp::Category& category = log4cpp::Category::getInstance("LOCKED_TEST");
    std::string records;
    category.setAdditivity(false);
    category.setAppender(new Recorder(records));
    for (const auto& [priority, expected] : rows) {
        records.clear();
        category.setPriority(priority);
        lu_lock_info_pthread("i%n", &category, &mutex);
        lu_lock_info_pthread("i", &category, nullptr);
        lu_lock_debug_pthread("d", &category, &mutex);
        lu_lock_debug_pthread("d", &category, nullptr);
        lu_lock_info_pthread("no category", nullptr, &mutex);
        EXPECT_EQ(records, expected);
        EXPECT_FALSE(is_locked());
    }
    category.removeAllAppenders();
}

} // namespace
} // namespace zelvor
