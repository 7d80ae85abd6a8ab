#include "utils/common_utils/xml.h"

#include "tests/testing.h"

#include <libxml++/libxml++.h>

namespace zelvor {

TEST(Xml, EscapesAndLeavesSomeEntitiesAlone) {
    using Row = std::pair<std::string, std::string>;
    for (const auto& [text, escaped] :
         {Row("<a b=\"c'\">é\xC3", "&lt;a b=&quot;c&apos;&quot;&gt;é\xC3"), Row("&amp; &38; &7up;", "&amp; &38; &7up;"),
          Row("&lt; &#38; &0;", "&amplt; &amp#38; &amp0;"), Row("&; & amp; &amp ;", "&amp; &amp; amp; &amp;amp ;"),
          Row("&12345678; &123456789;", "&12345678; &amp;123456789;"), Row("&1éééé€€€; &\xE2;", "&1éééé€€€; &amp\xE2;"),
          Row("&&amp;", "&amp&amp;"), Row("AT&T &", "AT&amp;T &amp;")})
        EXPECT_EQ(xml_escape(text).raw(), escaped) << text;
    xmlpp::DomParser parser;
    parser.parse_memory("<w>ar<!-- c --><b>x</b>ma<![CDATA[y]]> é</w>"); // text of direct children only
    EXPECT_EQ(get_text_node_contents(parser.get_document()->get_root_node()), "arma é");
    EXPECT_EQ(get_text_node_contents(nullptr), "");
}

} // namespace zelvor
