#pragma once

#include <glibmm/ustring.h>

#include <string>

namespace xmlpp {
class Element;
}

namespace zelvor {

/// Escapes & < > " and apostrophe. An ampersand stays where "amp" or a text that begins with a number other than 0, and
/// then a semicolon, follow within ten code points; before any other name ("&lt;") it becomes "&amp" without one.
Glib::ustring xml_escape(const Glib::ustring& s);

/// The text nodes directly below the element, joined; nothing of deeper ones, CDATA or entity references. Empty for a
/// null pointer.
std::string get_text_node_contents(xmlpp::Element* pelement);

} // namespace zelvor
