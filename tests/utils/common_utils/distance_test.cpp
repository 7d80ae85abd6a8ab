#include "utils/common_utils/distance.h"

#include "tests/testing.h"

namespace zelvor {

TEST(Distance, PlainAndWithExchanges) {
    using Row = std::tuple<Glib::ustring, Glib::ustring, int, int>;
    // Bad bytes are one character, U+FFFD. Off the diagonal neighbours are not exchanged ("xyzab"), but crossed
    // positions may be ("apbqp").
    for (const auto& [s1, s2, plain, with_exchanges] :
         {Row("", "abc", 3, 3), Row("abc", "abc", 0, 0), Row("kitten", "sitting", 3, 3), Row("λόγος", "λόγοι", 1, 1),
          Row("ab\xFF", "ab\xC3", 0, 0), Row("ab", "ba", 2, 1), Row("abcd", "abdc", 2, 1), Row("xyzab", "yzba", 3, 3),
          Row("apbqp", "aqcp", 3, 2)}) {
        EXPECT_EQ(levenshtein_distance(s1, s2, false), plain) << s1.raw();
        EXPECT_EQ(levenshtein_distance(s2, s1, false), plain) << s1.raw();
        EXPECT_EQ(levenshtein_distance(s1, s2, true), with_exchanges) << s1.raw();
    }
}

} // namespace zelvor
