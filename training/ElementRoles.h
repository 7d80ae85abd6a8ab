#pragma once

#include "training/ConversionOptions.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvor {

enum class ElementRole : std::uint8_t { NONE, SENTENCE, WORD, PUNCTUATION, SKIPPED, CHOICE };

/// What elements are by their names, without prefix: a few names, met at every element.
class ElementRoles {
public:
    /// Of two roles of a name the first counts.
    void add(const ConversionOptions::Names& names, ElementRole role) {
        for (const std::string& name : names)
            m_roles.emplace_back(name, role);
    }

    ElementRole operator[](std::string_view name) const {
        for (const auto& [known, role] : m_roles)
            if (known.size() == name.size() && known == name)
                return role;
        return ElementRole::NONE;
    }

private:
    std::vector<std::pair<std::string, ElementRole>> m_roles;
};

} // namespace zelvor
