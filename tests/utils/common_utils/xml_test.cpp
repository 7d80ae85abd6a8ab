#include "utils/common_utils/xml.h"

#include <gtest/gtest.h>

#include <libxml++/libxml++.h>

#include <string>

namespace zelvor {
namespace {

TEST(Xml, EscapesAndLeavesSomeEntitiesAlone) {
    const std::pair<std::string, std::string> rows[] = {{"plain é", "plain é"},
                                                        {"<a b=\"c'\">", "&lt;a b=&quot;c&apos;&quot;&gt;"},
                                                        {"&amp; &38; &7up;", "&amp; &38; &7up;"},
                                                        {"&lt;", "&amplt;"},
                                                        {"&#38;", "&amp#38;"},
                                                        {"&;", "&amp;"},
                                                        {"& amp;", "&amp; amp;"},
                                                        {"&0;", "&amp0;"},
                                                        {"&12345678;", "&12345678;"},
                                                        {"&123456789;", "&amp;123456789;"},
                                                        {"&1éééé€€€;", "&1éééé€€€;"}, // the span counts code points
                                                        {"AT&T", "AT&amp;T"},
                                                        {"&", "&amp;"},
                                                        {"&&amp;", "&amp&amp;"},
                                                        {"<\xC3", "&lt;\xC3"},
                                                        {"&\xE2;", "&amp\xE2;"}};
    for (const auto& [text, escaped] : rows)
        EXPECT_EQ(xml_escape(text).raw(), escaped) << text;
}

TEST(Xml, TextOfDirectChildrenOnly) {
    xmlpp::DomParser parser;
    parser.parse_memory("<w>ar<!-- c --><b>x</b>ma<![CDATA[y]]> é</w>");
    EXPECT_EQ(get_text_node_contents(parser.get_document()->get_root_node()), "arma é");
    EXPECT_EQ(get_text_node_contents(nullptr), "");
}

} // namespace
} // namespace zelvor
