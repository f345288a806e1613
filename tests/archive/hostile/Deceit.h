#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

// Makes archives that are damaged or mean harm: every field of every record with every value that
// matters, every name that deceives, by itself and beside each other one.
namespace pellumar::test {

struct Deceit {
    std::string what;     // is wrong, for a message
    std::string archive;  // its bytes
};

// What the entries of all these archives hold, each whole. A file with anything else in it is a
// fault of whoever wrote it.
[[nodiscard]] const std::set<std::string>& contentsOfDeceits();

// A sound archive with an entry of each kind. The variants differ in prefix, ZIP64, descriptors and
// the size of what is in them: 0 to 3 are small, the others have an entry that unpacks to over half
// a MiB and is written in pieces before its checksum is known.
[[nodiscard]] std::string soundArchive(unsigned variant);
inline constexpr unsigned kSoundVariants = 6;

// Hands them over one after another. `--stride` of them are left out between two: 1 leaves out
// none.
void forEachDeceit(std::size_t stride, const std::function<void(const Deceit&)>& take);

}  // namespace pellumar::test
