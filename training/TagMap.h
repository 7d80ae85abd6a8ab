#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zelvor {

/// Tags that become others: a file of lines "OLD", a tab, "NEW". A line that begins with "#" is a comment, and OLD "*"
/// stands for all tags that no other line names, which otherwise stay.
class TagMap {
public:
    /// Replaces the content by that of a file; with `nfc`, in Unicode's normal form C. Throws std::system_error when it
    /// cannot be read, std::invalid_argument, which names file and line, for a line without a tab, a tag that is given
    /// twice, a new tag that would break its line, and text that is no UTF-8; the content is then as it was.
    void load(const std::string& filename, bool nfc);

    /// What becomes of a tag; empty where its tokens are to be left out. Valid as long as the content and the tag.
    std::string_view map(std::string_view tag) const;

private:
    std::map<std::string, std::string, std::less<>> m_tags;
    std::optional<std::string> m_others;
};

} // namespace zelvor
