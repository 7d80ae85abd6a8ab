#include "utils/common_utils/encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace std::string_literals;

namespace zelvor {
namespace {

TEST(Encoding, Latin1BecomesUtf8UpToItsFirstNul) {
    const struct {
        std::string latin1, utf8;
    } rows[] = {{"", ""},
                {"az\x7F", "az\x7F"},
                {"\x80\xA0\xBF\xC0\xE4\xFF", "\xC2\x80\xC2\xA0\xC2\xBF\xC3\x80\xC3\xA4\xC3\xBF"},
                {"\xE4\0\xE4"s, "\xC3\xA4"}};
    for (const auto& row : rows) {
        EXPECT_EQ(convert_latin1_to_utf8(row.latin1), row.utf8);
        std::vector<char> out(2 * row.latin1.size() + 1); // exactly the room that is asked for
        convert_latin1_to_utf8(row.latin1.c_str(), out.data());
        EXPECT_EQ(out.data(), row.utf8);
    }
}

TEST(Encoding, ConvertsIntoTheFirstFromTheSecond) {
    const std::string many(3000, '\xE4');
    const struct {
        std::string text, into, from, expected;
    } rows[] = {
        {"", "UTF-8", "ISO-8859-1", ""},
        {"\xE4z", "UTF-8", "ISO-8859-1", "äz"},
        {"äz", "ISO-8859-1", "UTF-8", "\xE4z"},
        {many, "UTF-8", "ISO-8859-1", convert_latin1_to_utf8(many)}, // several buffers
        {"\x80", "UTF-8", "CP1252", "€"},                            // more than twice as long
        {"ab\xFFz", "UTF-16LE", "UTF-8", "a"},                       // ends at the first zero byte
        {"ab\xFFz", "ISO-8859-1", "UTF-8", "ab"},                    // ends where the input is invalid
        {"a", "UTF-8", "no such encoding", ""},
        {"a", "no such encoding", "UTF-8", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.into + " from " + row.from);
        EXPECT_EQ(convert_encoding(row.text, row.into, row.from), row.expected);
    }
}

} // namespace
} // namespace zelvor
