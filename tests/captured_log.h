#pragma once

#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>

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

    std::ostringstream records;
    log4cpp::Category& category = log4cpp::Category::getInstance("CAPTURED_LOG");
};

} // namespace zelvor
