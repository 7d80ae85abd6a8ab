#pragma once

#include "tests/captured_log.h"
#include "tests/temporary_directory.h"

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

/// A call's result as text, or "throws" where it throws std::out_of_range.
template<typename Call>
std::string text_or_throws(Call call) {
    try {
        return call();
    } catch (const std::out_of_range&) {
        return "throws";
    }
}

} // namespace zelvor
