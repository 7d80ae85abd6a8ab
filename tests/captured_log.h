#pragma once

#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace zelvor {

/// A category whose records a test can read.
struct CapturedLog {
    CapturedLog() {
        category.setAdditivity(false);
        category.setPriority(log4cpp::Priority::DEBUG);
        category.addAppender(new log4cpp::OstreamAppender("captured", &records));
    }
    ~CapturedLog() { category.removeAllAppenders(); }
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;

    bool has(const std::string& text) const { return records.str().find(text) != std::string::npos; }

    /// Expects whole messages in this order, others among them.
    void expect(std::initializer_list<std::string> messages) const {
        for (std::size_t at = 0; const std::string& message : messages) {
            at = records.str().find(" : " + message + "\n", at);
            EXPECT_NE(at, std::string::npos) << message << " in\n" << records.str();
        }
    }

    std::ostringstream records;
    log4cpp::Category& category = log4cpp::Category::getInstance("CAPTURED_LOG");
};

/// What a call writes to standard output.
template<typename Call>
std::string output_of(Call call) {
    testing::internal::CaptureStdout();
    call();
    return testing::internal::GetCapturedStdout();
}

} // namespace zelvor
