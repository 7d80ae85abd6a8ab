#include "utils/common_utils/distance.h"

#include <gtest/gtest.h>

#include <string>

namespace zelvor {
namespace {

TEST(Distance, PlainAndWithExchanges) {
    const struct {
        std::string s1, s2;
        int plain, with_exchanges;
    } rows[] = {
        {"", "", 0, 0},
        {"", "abc", 3, 3},
        {"abc", "abc", 0, 0},
        {"kitten", "sitting", 3, 3},
        {"λόγος", "λόγοι", 1, 1},   // code points, not bytes
        {"ab\xFF", "ab\xC3", 0, 0}, // bad bytes are one character, U+FFFD
        {"ab", "ba", 2, 1},
        {"abcd", "abdc", 2, 1},
        {"xyzab", "yzba", 3, 3}, // off the diagonal no neighbours are exchanged,
        {"apbqp", "aqcp", 3, 2}, // but crossed positions may be
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.s1 + " " + row.s2);
        EXPECT_EQ(levenshtein_distance(row.s1, row.s2, false), row.plain);
        EXPECT_EQ(levenshtein_distance(row.s2, row.s1, false), row.plain);
        EXPECT_EQ(levenshtein_distance(row.s1, row.s2, true), row.with_exchanges);
    }
}

} // namespace
} // namespace zelvor
