#include "training/ValueSource.h"

#include <algorithm>
#include <stdexcept>

namespace zelvor {

namespace {

constexpr std::string_view XML_PREFIX = "xml:";
constexpr std::string_view NO_NAME = "@=<>\"'&|"; // what no attribute's name holds

/// XML has no control characters below the blank but white space.
bool is_blank(char c) { return static_cast<unsigned char>(c) <= ' '; }

/// Where, from a place on, the first character is that is a blank, or that is none; the end where there is none.
std::size_t find_blank(std::string_view text, std::size_t i, bool wants_blank) {
    while (i < text.size() && is_blank(text[i]) != wants_blank)
        ++i;
    return i;
}

/// What stands before the first `separator`, which goes with it.
std::string_view next_part(std::string_view& text, char separator) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

std::string_view target_of(std::string_view pointer) {
    for (const char mark : {'#', ':'})
        if (const std::size_t place = pointer.find(mark); place != std::string_view::npos)
            return pointer.substr(place + 1);
    return pointer;
}

std::string targets_of(std::string_view pointers) {
    std::string targets;
    for (std::size_t begin = find_blank(pointers, 0, false); begin < pointers.size();) {
        const std::size_t end = find_blank(pointers, begin, true);
        if (const std::string_view target = target_of(pointers.substr(begin, end - begin)); !target.empty())
            targets.append(targets.empty() ? "" : "|").append(target);
        begin = find_blank(pointers, end, false);
    }
    return targets;
}

std::string_view trimmed_blanks(std::string_view text) {
    while (!text.empty() && is_blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view value_of_key(std::string_view pairs, std::string_view key) {
    while (!pairs.empty()) {
        std::string_view value = next_part(pairs, '|');
        const bool has_value = value.find('=') != std::string_view::npos;
        if (trimmed_blanks(next_part(value, '=')) == key && has_value)
            return value;
    }
    return {};
}

/// A part that is empty, or has a blank at one of its ends.
bool has_loose_part(std::string_view pairs) {
    return pairs.starts_with('|') || pairs.ends_with('|') || pairs.find("||") != std::string_view::npos ||
           pairs.find(" |") != std::string_view::npos || pairs.find("| ") != std::string_view::npos;
}

bool is_tag(std::string_view pair) {
    const std::string_view key = trimmed_blanks(pair.substr(0, pair.find('=')));
    return key == "UPosTag" || key == "XPosTag";
}

/// Without tags, empty parts and blanks around parts, in place: value is the whole of an attribute.
void keep_features(std::string& value) {
    if (value.find("PosTag") == std::string::npos && !has_loose_part(value))
        return;
    std::size_t kept = 0;
    for (std::string_view rest = value; !rest.empty();) {
        const std::string_view pair = trimmed_blanks(next_part(rest, '|'));
        if (pair.empty() || is_tag(pair))
            continue;
        if (kept > 0)
            value[kept++] = '|';
        std::ranges::copy(pair, value.begin() + static_cast<std::ptrdiff_t>(kept));
        kept += pair.size();
    }
    value.resize(kept);
}

} // namespace

void collapse_blanks(std::string_view text, std::string& value) {
    std::size_t begin = find_blank(text, 0, false), end = find_blank(text, begin, true);
    value.assign(text, begin, end - begin);
    while (begin = find_blank(text, end, false), begin < text.size()) {
        end = find_blank(text, begin, true);
        (value += ' ').append(text, begin, end - begin);
    }
}

std::vector<std::string_view> split_list(std::string_view list) {
    std::vector<std::string_view> elements;
    for (std::size_t begin = 0; begin <= list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        elements.push_back(list.substr(begin, end - begin));
        begin = end + 1;
    }
    return elements;
}

ValueSource::ValueSource(std::string_view name) {
    const std::size_t prefix = name.starts_with(XML_PREFIX) ? XML_PREFIX.size() : 0;
    const std::size_t colon = name.rfind(':');
    const bool has_key = colon != std::string_view::npos && colon >= prefix;
    m_attribute = name.substr(0, has_key ? colon : name.size());
    m_key = has_key ? name.substr(colon + 1) : "";
    if (std::ranges::any_of(m_attribute, [](char c) { return is_blank(c) || NO_NAME.find(c) != NO_NAME.npos; }) ||
        std::ranges::any_of(m_key, is_blank))
        throw std::invalid_argument("'" + std::string(name) +
                                    "' is no name of an attribute; several are separated by "
                                    "commas alone");
    if (m_attribute.size() <= prefix || (has_key && m_key.empty()))
        throw std::invalid_argument("'" + std::string(name) + "' names no attribute, nor a key as in msd:Case");
    if (m_attribute.find(':', prefix) != std::string::npos)
        throw std::invalid_argument("'" + std::string(name) + "': of prefixes, only xml: can be named");
}

void ValueSource::read(const TokenAttributes& attributes, std::string& value) const {
    std::string_view text = attributes.value(m_attribute);
    std::string targets;
    if (m_attribute == "ana" && !text.empty())
        text = targets = targets_of(text);
    if (!m_key.empty())
        text = value_of_key(text, m_key);
    collapse_blanks(text, value);
}

ValueSources::ValueSources(std::string_view names, Use use) : m_use(use) {
    for (const std::string_view name : split_list(names)) {
        if (name == "text" && use != Use::FORM)
            throw std::invalid_argument("'text' is a source of the form only");
        m_is_text.push_back(name == "text");
        m_sources.emplace_back(name);
    }
}

void ValueSources::read(const TokenAttributes& attributes, std::string_view text, std::string& value) const {
    value.clear();
    for (std::size_t i = 0; i < m_sources.size() && value.empty(); ++i) {
        if (m_is_text[i])
            collapse_blanks(text, value);
        else
            m_sources[i].read(attributes, value);
        if (m_use == Use::FEATS && m_sources[i].attribute() == "msd" && m_sources[i].key().empty())
            keep_features(value);
    }
}

} // namespace zelvor
