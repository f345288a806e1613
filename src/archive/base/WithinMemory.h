#pragma once

#include <new>

#include "archive/base/Error.h"

namespace pellumar::archive {

// Runs `operation`, which returns a Result, and returns that; kOutOfMemory if the standard library
// ran out of memory in it. For the places where the library and its threads end: in between, an
// allocation that fails just passes through.
template <typename Operation>
[[nodiscard]] auto withinMemory(const Operation& operation) -> decltype(operation()) {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return failure(ErrorCode::kOutOfMemory);
    }
}

}  // namespace pellumar::archive
