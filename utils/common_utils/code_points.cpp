#include "utils/common_utils/code_points.h"

#include "utils/common_utils/utf8.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace zelvor {

namespace {

/// Whether eight ASCII characters follow; most of a text is read in such strides.
bool is_stride(std::string_view text, std::size_t byte) {
    std::uint64_t bytes = 0x80;
    if (text.size() - byte >= sizeof bytes)
        std::memcpy(&bytes, text.data() + byte, sizeof bytes);
    return (bytes & 0x8080808080808080U) == 0;
}

} // namespace

char32_t CodePoints::at(std::uint32_t position) {
    return seek(position) && m_here.byte < m_text.size() ? decode_character(m_text, m_here.byte).code_point : NONE;
}

std::string CodePoints::substr(std::uint32_t from, std::uint32_t length) {
    if (!seek(from))
        throw std::out_of_range("span begins beyond the end of the text");
    m_anchor = m_here;
    const std::uint32_t rest = std::numeric_limits<std::uint32_t>::max() - from;
    seek(from + std::min(length, rest));
    return std::string(m_text.substr(m_anchor.byte, m_here.byte - m_anchor.byte));
}

bool CodePoints::seek(std::uint32_t position) {
    if (position < m_here.position)
        m_here = position < m_anchor.position ? Place{} : m_anchor;
    Place here = m_here; // a copy stays in registers
    while (here.position < position && here.byte < m_text.size()) {
        const bool by_eight = position - here.position >= 8 && is_stride(m_text, here.byte);
        here.position += by_eight ? 8 : 1;
        here.byte += by_eight ? 8 : decode_character(m_text, here.byte).length;
    }
    m_here = here;
    return here.position == position;
}

} // namespace zelvor
