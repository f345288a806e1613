#pragma once

#include <cstdint>

namespace pellumar::archive {

// How the data of a new entry is encrypted; names, sizes and times stay to be seen.
enum class NewEncryption : std::uint8_t {
    kAes256,  // WinZip's AES, AE-2
    kAes192,
    kAes128,
    kTraditional,  // which old programs can read, and which can be broken
};

}  // namespace pellumar::archive
