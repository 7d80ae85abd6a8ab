#pragma once

#include "training/XmlReader.h"

#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// The attributes of a token's element, kept beyond the call that hands them over.
class TokenAttributes {
public:
    void assign(const XmlAttributes& attributes);
    void clear();

    /// Empty where there is none of this name, which is as written, with its prefix. Valid until the next change.
    std::string_view value(std::string_view name) const;

    std::size_t size() const { return m_ends.size() / 2; }
    std::string_view name_at(std::size_t i) const { return piece(2 * i); }
    std::string_view value_at(std::size_t i) const { return piece(2 * i + 1); }

private:
    std::string_view piece(std::size_t i) const {
        const std::size_t begin = i == 0 ? 0 : m_ends[i - 1];
        return std::string_view(m_text).substr(begin, m_ends[i] - begin);
    }

    std::string m_text;              ///< names and values in turn
    std::vector<std::size_t> m_ends; ///< of each of them
};

} // namespace zelvor
