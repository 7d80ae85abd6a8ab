#include "utils/common_utils/xml.h"

#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"

#include <libxml++/libxml++.h>

#include <cstdlib>
#include <optional>
#include <string_view>

namespace zelvor {

namespace {

constexpr int ENTITY_SPAN = 10; ///< code points from an ampersand in which its semicolon is looked for

/// The text between the ampersand at the byte `position` and its semicolon, if that is near enough.
std::optional<std::string_view> entity_name(std::string_view text, std::size_t position) {
    const std::size_t begin = position + 1;
    for (int i = 0; i < ENTITY_SPAN && position < text.size(); ++i) {
        if (text[position] == ';')
            return text.substr(begin, position - begin);
        position += decode_character(text, position).length;
    }
    return std::nullopt;
}

/// kept: before "amp;" and before a number the ampersand stays; before any other name it becomes "&amp" alone.
std::string_view escape_ampersand(std::string_view text, std::size_t position) {
    const std::optional<std::string_view> name = entity_name(text, position);
    if (!name || trimmed(*name).size() < name->size())
        return "&amp;";
    return name == "amp" || std::atoi(std::string(*name).c_str()) != 0 ? "&" : "&amp";
}

} // namespace

Glib::ustring xml_escape(const Glib::ustring& s) {
    const std::string& text = s.raw();
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        switch (text[i]) {
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        case '\'':
            result += "&apos;";
            break;
        case '&':
            result += escape_ampersand(text, i);
            break;
        default:
            result += text[i];
        }
    }
    return result;
}

std::string get_text_node_contents(xmlpp::Element* pelement) {
    std::string contents;
    if (!pelement)
        return contents;
    for (const xmlpp::Node* child : pelement->get_children())
        if (const auto* text = dynamic_cast<const xmlpp::TextNode*>(child))
            contents += text->get_content().raw();
    return contents;
}

} // namespace zelvor
