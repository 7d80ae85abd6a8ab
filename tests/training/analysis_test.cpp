#include "training/analysis.h"

#include "tests/testing.h"

#include <json/json.h>

#include <malloc.h>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // Json::Reader, as in the reader itself

namespace zelvor {

TEST(AnalysisReader, RemembersABoundedAmount) {
    const auto bytes_in_use = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; }; // 0 under a sanitizer
    const std::size_t before = bytes_in_use();
    Json::Reader json_reader;
    AnalysisReader reader;
    for (int i = 0; i < 1000; ++i)
        reader.read(json_reader, std::string(100'000, ' ') + std::to_string(i));
    EXPECT_LT(bytes_in_use() - before, 50'000'000U);
}

} // namespace zelvor
