#include "utils/common_utils/numbers.h"

#include "tests/testing.h"

#include <locale>

namespace zelvor {

struct CommaAsPoint : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
};

TEST(Numbers, DoublesAsAClassicStreamReadsThemAndLists) {
    using Row = std::pair<const char*, double>;
    const std::locale before = std::locale::global(std::locale(std::locale(), new CommaAsPoint));
    for (const auto& [text, expected] :
         {Row(" -2e3x", -2000.0), Row("1,5", 1.0), Row("", 0.0), Row("nan", 0.0), Row("0x10", 0.0), Row(".5", 0.5)})
        EXPECT_EQ(convert_ustring_to_double(text), expected) << text;
    std::locale::global(before);
    std::vector<int> values{7};
    parse_numbers("3,x,,-2", ",", values);
    std::set<int> set{1};
    parse_numbers_set("3;2 3", "; ", set);
    EXPECT_EQ(values, (std::vector<int>{7, 3, 0, -2}));
    EXPECT_EQ(set, (std::set<int>{1, 2, 3}));
}

TEST(Numbers, CountsFromAFile) {
    const TemporaryDirectory directory;
    std::map<std::string, int> counts;
    read_string_int_hashtable(directory.write("counts", "x=y=3\nnone\n k = 4x\nk=1\nk=2\n=5\nlast=6"), counts);
    EXPECT_EQ(counts, (std::map<std::string, int>{{"x=y", 3}, {" k ", 4}, {"k", 1}, {"", 5}, {"last", 6}}));
    increase_hash_value(&counts, "new", 5);
    increase_hash_value(counts, "k", INT_MAX);
    EXPECT_EQ(counts["new"], 5);
    EXPECT_EQ(counts["k"], INT_MIN);
}

} // namespace zelvor
