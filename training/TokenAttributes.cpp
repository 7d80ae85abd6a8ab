#include "training/TokenAttributes.h"

namespace zelvor {

void TokenAttributes::assign(const XmlAttributes& attributes) {
    clear();
    attributes.for_each([this](std::string_view name, std::string_view value) {
        for (const std::string_view piece : {name, value}) {
            m_text += piece;
            m_ends.push_back(m_text.size());
        }
    });
}

void TokenAttributes::clear() {
    m_text.clear();
    m_ends.clear();
}

std::string_view TokenAttributes::value(std::string_view name) const {
    for (std::size_t i = 0; i < size(); ++i)
        if (name_at(i) == name)
            return value_at(i);
    return {};
}

} // namespace zelvor
