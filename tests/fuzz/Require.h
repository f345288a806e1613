#pragma once

#include <cstdio>
#include <cstdlib>

namespace pellumar::fuzz {

// Ends the program, with a word, where something does not hold: that is what a fuzzer notices.
inline void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

}  // namespace pellumar::fuzz
