#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"
#include "archive/base/Password.h"

namespace pellumar::archive {

// How an entry is encrypted, as its headers tell.
struct Encryption {
    enum class Kind : std::uint8_t { kNone, kTraditional, kAes };

    // Of AES with the longest salt, in bytes.
    static constexpr std::size_t kLongestHeader = 18;
    static constexpr std::size_t kLongestTrailer = 10;

    Kind kind = Kind::kNone;
    std::uint8_t aesStrength = 0;  // 1, 2, 3: keys of 128, 192, 256 bits
    // The checksum says nothing; the authentication code does (AE-2).
    bool hidesChecksum = false;
    // What the last byte of the traditional header may decrypt to: the highest byte of the
    // checksum, or, before a data descriptor, of the time (APPNOTE 6.1.6, and Info-ZIP's habit).
    std::uint8_t check = 0;
    std::uint8_t otherCheck = 0;

    [[nodiscard]] explicit operator bool() const { return kind != Kind::kNone; }
    // Bytes before and behind the encrypted data that belong to the encryption.
    [[nodiscard]] std::size_t headerSize() const;
    [[nodiscard]] std::size_t trailerSize() const;
};

// Decrypts one entry's data: traditional encryption (APPNOTE 6.1) or WinZip's AES (its "AES
// Encryption Information", AE-1 and AE-2). Belongs to one thread; wipes its keys at its end.
class Decryptor {
  public:
    virtual ~Decryptor() = default;
    Decryptor() = default;
    Decryptor(const Decryptor&) = delete;
    Decryptor& operator=(const Decryptor&) = delete;

    // The next bytes, in place.
    virtual void decrypt(MutableBytes bytes) = 0;

    // Holds the trailer, which is trailerSize() long, against all that was decrypted:
    // kDamagedData if it does not authenticate it.
    [[nodiscard]] virtual Result<> finish(ByteView trailer) = 0;
};

// kEncryptionNotInstalled if the machine has no library for this way.
[[nodiscard]] Result<> checkIsInstalled(const Encryption& encryption);

// From the header, which is headerSize() long. kWrongPassword if its check bytes say so: a wrong
// one passes by chance once in 256 (with AES once in 65,536) times. kEncryptionNotInstalled if
// there is no library for it.
[[nodiscard]] Result<std::unique_ptr<Decryptor>> makeDecryptor(const Encryption& encryption,
                                                               const Password& password,
                                                               ByteView header);

// Whether makeDecryptor() would take the password; with AES in a quarter of the time.
[[nodiscard]] Result<> tryPassword(const Encryption& encryption,
                                   const Password& password,
                                   ByteView header);

}  // namespace pellumar::archive
