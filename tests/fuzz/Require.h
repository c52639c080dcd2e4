// What a target does when something isn't as it has to be.
#pragma once

#include <cstdlib>

inline void require(bool condition) {
    if (!condition) std::abort();
}
