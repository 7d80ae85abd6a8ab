#include "utils/common_utils/encoding.h"

#include "tests/testing.h"
#include "utils/common_utils/text.h"

#include <cerrno>

namespace zelvor {

TEST(Encoding, ConvertsIntoTheFirstFromTheSecond) {
    EXPECT_EQ(convert_latin1_to_utf8("az\x7F\x80\xA0\xBF\xC0\xE4\xFF\0z"s), "az\x7F\u0080\u00A0¿Àäÿ");
    std::string out(5, 'x'); // exactly the room that is asked for
    convert_latin1_to_utf8("\xE4\xE4", out.data());
    EXPECT_EQ(out, "ää\0"s);
    // More than twice as long; as long as the buffer; ends at the first zero byte; ends where the input is invalid.
    using Row = std::array<std::string, 4>;
    for (const auto& [text, into, from, expected] :
         {Row{std::string(20, '\x80'), "UTF-8", "CP1252", concatenate_duplicate("€", 20)},
          Row{std::string(8, '\xE4'), "GB18030", "ISO-8859-1", concatenate_duplicate("\x81\x30\x8A\x31", 8)},
          Row{"ab\xFFz", "UTF-16LE", "UTF-8", "a"},
          Row{"äb\xFFz", "ISO-8859-1", "UTF-8",
              "\xE4"
              "b"},
          Row{"a", "UTF-8", "no such encoding", ""}}) {
        errno = E2BIG; // left by somebody else
        EXPECT_EQ(convert_encoding(text, into, from), expected) << into << " from " << from;
    }
}

} // namespace zelvor
