#pragma once

#include <string>

namespace zelvor {

/// Brings text into Unicode's normal form C; what is no UTF-8, or has a NUL, stays as it is.
void to_normal_form(std::string& text);

} // namespace zelvor
