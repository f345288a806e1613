#pragma once

#include <cstddef>

// Stands before the allocator of this program: every malloc and new of the library and of those it
// uses. Under sanitizers, which have an allocator of their own, new alone.
namespace pellumar::test {

// Lets the allocation behind `before` others fail, in whichever thread it is.
void failAllocation(std::size_t before);

// Ends that; whether one has failed.
[[nodiscard]] bool hasFailedAllocation();

}  // namespace pellumar::test
