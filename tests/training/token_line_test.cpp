#include "training/token_line.h"

#include "tests/testing.h"

namespace zelvor {

TEST(TokenLine, ColumnsThatBreakALineAreDroppedOrReplaced) {
    using enum TokenLineFormat::Column;
    using enum TokenLineFormat::BadToken;
    const std::string longest(8190 - 2, 'a');
    // Other spaces separate nothing; a truncated character may end a line. What is replaced by "" is dropped all the
    // same.
    using Row = std::tuple<std::string, std::string, bool>; // the form, as a column, whether it is good
    for (const auto& [form, replaced, is_good] :
         {Row("amat", "amat", true), Row("\u00e6\u00a0\u2027\u3000", "\u00e6\u00a0\u2027\u3000", true),
          Row("\xC2", "\xC2", true), Row(longest, longest, true), Row(longest + "a", "", false), Row("", "_", false),
          Row(" a", "_a", false), Row("a \n\t b", "a_b", false), Row("a\r", "a_", false),
          Row(std::string("a\0b", 3), "a_b", false), Row("a\x7F\u0085\u2028\u2029z\u009f", "a_z_", false),
          Row(longest + " ", "", false)}) {
        SCOPED_TRACE(form.substr(0, 20));
        for (const TokenLineFormat::BadToken on_bad_token : {DROP, REPLACE, FAIL}) {
            const bool is_replaced = on_bad_token == REPLACE && !replaced.empty();
            const bool is_written = is_good || is_replaced;
            std::string lines = "before\n";
            EXPECT_EQ(append_token_line(lines, {{FORM, POS}, ' ', on_bad_token}, form, "l", "V"),
                      is_good       ? TokenLineOutcome::WRITTEN
                      : is_replaced ? TokenLineOutcome::REPLACED
                                    : TokenLineOutcome::BROKEN);
            EXPECT_EQ(lines, is_written ? "before\n" + replaced + " V\n" : "before\n");
        }
    }
    std::string lines;
    append_token_line(lines, {{POS, LEMMA, FORM}, '\t', DROP}, "f", "l", "p");
    append_token_line(lines, {{FORM}, ' ', DROP}, "f", " ", ""); // columns that are not written
    EXPECT_EQ(lines, "p\tl\tf\nf\n");
}

} // namespace zelvor
