#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace pellumar {

// The positions of `names` in the order in which people expect them, whatever lists them: numbers
// by their value ("file 2" before "file 10"), letters as the user's language orders them, large and
// small alike. Where that does not tell them apart their bytes do, so a folder's list does not
// depend on the order in which its file system gives it; equal names keep theirs. Names are bytes,
// UTF-8 or not. For any thread.
[[nodiscard]] std::vector<std::size_t> naturalOrder(const std::vector<std::string>& names);

}  // namespace pellumar
