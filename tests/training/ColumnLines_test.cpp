#include "training/ColumnLines.h"

#include <gtest/gtest.h>

#include <tuple>

namespace zelvor {
namespace {

using BadToken = ConversionOptions::BadToken;

ConversionOptions options_for(const char* columns, BadToken on_bad_token) {
    ConversionOptions options;
    options.has_lexicon = true;
    options.columns = read_columns(columns);
    options.on_bad_token = on_bad_token;
    return options;
}

Token token(std::string_view form, std::string_view lemma, std::string_view pos) {
    Token token;
    token.form = form;
    token.lemma = lemma;
    token.pos = pos;
    return token;
}

TEST(ColumnLines, WhatBreaksALineIsDroppedOrReplaced) {
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
        for (const BadToken on_bad_token : {BadToken::DROP, BadToken::REPLACE, BadToken::FAIL}) {
            const bool is_replaced = on_bad_token == BadToken::REPLACE && !is_good && !replaced.empty();
            const ConversionOptions options = options_for("form,pos", on_bad_token);
            ColumnLines lines(options);
            EXPECT_EQ(lines.add(token(form, "l", "V")).is_replaced, is_replaced);
            EXPECT_EQ(lines.end(), is_good || is_replaced ? replaced + " V\n\n" : "\n");
        }
    }
}

TEST(ColumnLines, ColumnsThatAreNotWrittenBreakNothing) {
    ConversionOptions options = options_for("pos,lemma,form", BadToken::DROP);
    options.separator = '\t';
    ColumnLines all(options);
    all.add(token("f", "l", "p"));
    EXPECT_EQ(all.end(), "p\tl\tf\n\n");
    const ConversionOptions form_only = options_for("form", BadToken::DROP);
    ColumnLines forms(form_only);
    forms.add(token("f", " ", ""));
    EXPECT_EQ(forms.end(), "f\n\n");
}

} // namespace
} // namespace zelvor
