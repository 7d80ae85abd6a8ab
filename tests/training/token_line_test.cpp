#include "training/token_line.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

using Column = TokenLineFormat::Column;
using BadToken = TokenLineFormat::BadToken;

TEST(TokenLine, ColumnsThatBreakALineAreDroppedOrReplaced) {
    const std::string longest(8190 - 2, 'a');
    const struct {
        std::string form, replaced; ///< as a column; "" where the line is dropped all the same
        bool is_good;
    } rows[] = {
        {"amat", "amat", true},
        {"\u00e6\u00a0\u2027\u3000", "\u00e6\u00a0\u2027\u3000", true}, // other spaces separate nothing
        {"\xC2", "\xC2", true},                                         // a truncated character at the end
        {longest, longest, true},
        {longest + "a", "", false},
        {"", "_", false},
        {" a", "_a", false},
        {"a \n\t b", "a_b", false},
        {"a\r", "a_", false},
        {std::string("a\0b", 3), "a_b", false},
        {"a\x7F\u0085\u2028\u2029z\u009f", "a_z_", false},
        {longest + " ", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.form.substr(0, 20));
        for (const BadToken on_bad_token : {BadToken::DROP, BadToken::REPLACE, BadToken::FAIL}) {
            const bool is_replaced = on_bad_token == BadToken::REPLACE && !row.replaced.empty();
            const bool is_written = row.is_good || is_replaced;
            std::string lines = "before\n";
            EXPECT_EQ(append_token_line(lines, {{Column::FORM, Column::POS}, ' ', on_bad_token}, row.form, "l", "V"),
                      row.is_good   ? TokenLineOutcome::WRITTEN
                      : is_replaced ? TokenLineOutcome::REPLACED
                                    : TokenLineOutcome::BROKEN);
            EXPECT_EQ(lines, is_written ? "before\n" + row.replaced + " V\n" : "before\n");
        }
    }
    std::string lines;
    append_token_line(lines, {{Column::POS, Column::LEMMA, Column::FORM}, '\t', BadToken::DROP}, "f", "l", "p");
    append_token_line(lines, {{Column::FORM}, ' ', BadToken::DROP}, "f", " ", ""); // columns that are not written
    EXPECT_EQ(lines, "p\tl\tf\nf\n");
}

} // namespace
} // namespace zelvor
