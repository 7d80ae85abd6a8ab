#include "utils/common_utils/distance.h"

#include "utils/common_utils/utf8.h"

#include <boost/numeric/ublas/matrix.hpp>

#include <algorithm>
#include <string>

namespace zelvor {

namespace {

/// kept: row and column are crossed, s1 is read at the column and s2 at the row. Beyond an end nothing is equal.
bool is_exchange(const std::u32string& s1, const std::u32string& s2, std::size_t i, std::size_t j) {
    return i >= 2 && j >= 2 && j - 2 < s1.size() && i - 1 < s2.size() && s1[j - 2] == s2[i - 1] &&
           s1[i - 1] == s2[j - 2];
}

} // namespace

int levenshtein_distance(const Glib::ustring& s1, const Glib::ustring& s2, bool allow_exchanges) {
    const std::u32string from = decode_utf8(s1.raw());
    const std::u32string to = decode_utf8(s2.raw());
    // No row is asked for once two more have been filled, so that three hold all that is needed.
    boost::numeric::ublas::matrix<int> rows(3, to.size() + 1, 0);
    const auto m = [&](std::size_t i, std::size_t j) -> int& { return rows(i % 3, j); };
    for (std::size_t j = 0; j <= to.size(); ++j)
        m(0, j) = static_cast<int>(j);
    for (std::size_t i = 1; i <= from.size(); ++i) {
        m(i, 0) = static_cast<int>(i);
        for (std::size_t j = 1; j <= to.size(); ++j) {
            if (from[i - 1] == to[j - 1]) {
                m(i, j) = m(i - 1, j - 1);
                continue;
            }
            m(i, j) = 1 + std::min({m(i - 1, j - 1), m(i, j - 1), m(i - 1, j)});
            if (allow_exchanges && is_exchange(from, to, i, j))
                m(i, j) = std::min(m(i, j), 1 + m(i - 2, j - 2));
        }
    }
    return m(from.size(), to.size());
}

} // namespace zelvor
