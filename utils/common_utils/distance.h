#pragma once

#include <glibmm/ustring.h>

namespace zelvor {

/// The least number of insertions, deletions and substitutions of code points that turn s1 into s2.
///
/// With `allow_exchanges`, an exchange of two neighbours costs 1 as well, where both texts are compared at the same
/// position; elsewhere the exchange test compares crossed positions, and the result is not the Damerau distance.
/// Time is proportional to the product of the lengths, memory to their sum.
int levenshtein_distance(const Glib::ustring& s1, const Glib::ustring& s2, bool allow_exchanges);

} // namespace zelvor
