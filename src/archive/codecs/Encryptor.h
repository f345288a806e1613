#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"
#include "archive/base/NewEncryption.h"
#include "archive/base/Password.h"

namespace pellumar::archive {

// Encrypts one entry's data: traditional encryption (APPNOTE 6.1) or WinZip's AES (its "AES
// Encryption Information"), with a salt of its own. Belongs to one thread at a time; wipes its keys
// at its end.
class Encryptor {
  public:
    // What one takes of memory, about.
    static constexpr std::size_t kMemory = 6UL * 1024;

    virtual ~Encryptor() = default;
    Encryptor() = default;
    Encryptor(const Encryptor&) = delete;
    Encryptor& operator=(const Encryptor&) = delete;

    // What stands in front of the data; to be asked for once, before it. The traditional header
    // ends in `check`: the upper byte of the entry's DOS time, as a data descriptor follows
    // (APPNOTE 6.1.6, and Info-ZIP's habit).
    [[nodiscard]] virtual Result<std::vector<std::uint8_t>> header(std::uint8_t check) = 0;

    // The next bytes, in place.
    virtual void encrypt(MutableBytes bytes) = 0;

    // What stands behind all of the data.
    [[nodiscard]] virtual std::vector<std::uint8_t> trailer() = 0;
};

// WinZip's number of the strength, 1 to 3; 0 for traditional encryption.
[[nodiscard]] std::uint8_t aesStrengthOf(NewEncryption encryption);

// With AES this takes about half a millisecond, for the key. kEncryptionNotInstalled if the machine
// has no library for it.
[[nodiscard]] Result<std::unique_ptr<Encryptor>> makeEncryptor(NewEncryption encryption,
                                                               const Password& password);

}  // namespace pellumar::archive
