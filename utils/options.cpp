#include "utils/options.h"

#include <iostream>

namespace zelvor {

bool check_options(std::string options[][2]) {
    for (; options && !(*options)[0].empty(); ++options) {
        const auto& [name, value] = *options;
        if (value.empty()) {
            std::cerr << "Option " << name << " is missing!" << std::endl;
            return false;
        }
    }
    return true;
}

} // namespace zelvor
