#pragma once

#include "tests/temporary_directory.h"

#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

/// What every test may use.
namespace zelvor {

using Strings = std::vector<std::string>;
using Words = std::set<std::string>;
using namespace std::string_literals;

/// A category whose records a test can read.
struct CapturedLog {
    CapturedLog() {
        category.setAdditivity(false);
        category.setPriority(log4cpp::Priority::DEBUG);
        category.addAppender(new log4cpp::OstreamAppender("captured", &records));
    }
    ~CapturedLog() { category.removeAllAppenders(); }
    CapturedLog& operator=(CapturedLog&&) = delete; // nor is there a copy

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

/// A call's result, or "throws" where it throws std::out_of_range.
template<typename Call>
std::string text_or_throws(Call call) {
    try {
        return call();
    } catch (const std::out_of_range&) {
        return "throws";
    }
}

} // namespace zelvor
