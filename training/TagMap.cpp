#include "training/TagMap.h"

#include "training/ColumnLines.h"
#include "training/normal_form.h"
#include "utils/common_utils/encoding.h"
#include "utils/common_utils/utf8.h"

#include <cerrno>
#include <fstream>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace zelvor {

namespace {

/// A reason why it is no line of a map, or nothing.
const char* add_line(std::map<std::string, std::string, std::less<>>& tags, std::string_view line, bool nfc) {
    const std::size_t tab = line.find('\t');
    if (!is_valid_utf8(line))
        return "no UTF-8";
    if (tab == std::string_view::npos)
        return "no tab between the old tag and the new one";
    if (tab == 0)
        return "no tag before the tab";
    std::string old_tag(line.substr(0, tab)), new_tag(line.substr(tab + 1));
    for (std::size_t i = 0; i < new_tag.size(); ++i)
        if (breaking_character(new_tag, i) != 0)
            return "a blank or control character in the new tag, which would break the lines of its tokens";
    if (nfc) {
        to_normal_form(old_tag);
        to_normal_form(new_tag);
    }
    return tags.emplace(std::move(old_tag), std::move(new_tag)).second ? nullptr : "this tag is there already";
}

} // namespace

void TagMap::load(const std::string& filename, bool nfc) {
    std::map<std::string, std::string, std::less<>> tags;
    errno = 0;
    std::ifstream file(filename);
    std::size_t number = 0;
    for (std::string line; std::getline(file, line);) {
        if (++number == 1 && line.starts_with(BYTE_ORDER_MARK))
            line.erase(0, BYTE_ORDER_MARK.size());
        if (line.ends_with('\r'))
            line.pop_back();
        if (line.starts_with('#'))
            continue;
        if (const char* const reason = add_line(tags, line, nfc))
            throw std::invalid_argument(filename + ":" + std::to_string(number) + ": " + reason);
    }
    if (!file.eof())
        throw std::system_error(errno ? errno : EIO, std::generic_category(), filename);
    m_others.reset();
    if (const auto others = tags.find("*"); others != tags.end())
        m_others = std::move(tags.extract(others).mapped());
    m_tags = std::move(tags);
}

std::string_view TagMap::map(std::string_view tag) const {
    if (const auto found = m_tags.find(tag); found != m_tags.end())
        return found->second;
    return m_others ? std::string_view(*m_others) : tag;
}

} // namespace zelvor
