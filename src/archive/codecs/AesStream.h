#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"
#include "archive/base/Password.h"
#include "archive/codecs/Nettle.h"

namespace pellumar::archive {

// One entry's data under WinZip's AES, in either direction: keys by PBKDF2 with HMAC-SHA1 and 1,000
// rounds out of password and salt, AES in counter mode with a little-endian counter from 1, and the
// first ten bytes of the HMAC-SHA1 of what is encrypted ("AES Encryption Information"). Belongs to
// one thread; wipes its keys at its end.
class AesStream {
  public:
    static constexpr std::size_t kCheckSize = 2;
    static constexpr std::size_t kCodeSize = 10;
    static constexpr std::size_t kLongestSalt = 16;

    // `strength` is 1, 2 or 3, for keys of 128, 192 and 256 bits.
    [[nodiscard]] static std::size_t saltSize(unsigned strength);

    // `salt` is saltSize(strength) long. Takes a third of a millisecond.
    // kEncryptionNotInstalled if the machine has no library for it.
    [[nodiscard]] static Result<std::unique_ptr<AesStream>> create(unsigned strength,
                                                                   const Password& password,
                                                                   ByteView salt);

    // Whether the check bytes of a stream made so are `expected`, in a fraction of the time.
    [[nodiscard]] static Result<bool> isPassword(unsigned strength,
                                                 const Password& password,
                                                 ByteView salt,
                                                 ByteView expected);

    AesStream(const AesStream&) = delete;
    AesStream& operator=(const AesStream&) = delete;
    ~AesStream();

    // Tells a wrong password from the right one; a wrong one fits once in 65,536 times.
    [[nodiscard]] ByteView checkBytes() const { return check_; }

    // The next bytes, in place.
    void decrypt(MutableBytes bytes);
    void encrypt(MutableBytes bytes);

    // Of all that went through; nothing may follow.
    [[nodiscard]] std::array<std::uint8_t, kCodeSize> code();
    // Whether `expected`, kCodeSize long, is the code; in place of code().
    [[nodiscard]] bool hasCode(ByteView expected);
    [[nodiscard]] bool hasCheckBytes(ByteView expected) const;

  private:
    static constexpr std::size_t kAhead = 256UL * AES_BLOCK_SIZE;

    union Cipher {
        aes128_ctx by128;
        aes192_ctx by192;
        aes256_ctx by256;
    };

    AesStream(const Nettle& nettle, unsigned strength, ByteView keys);
    void combine(MutableBytes bytes);
    // Makes the next bytes that the data is combined with.
    void fillAhead();

    const Nettle& nettle_;
    const unsigned strength_;
    Cipher cipher_;
    hmac_sha1_ctx code_;
    std::array<std::uint8_t, kCheckSize> check_{};
    std::uint64_t counter_ = 0;
    std::array<std::uint8_t, kAhead> ahead_;
    std::size_t used_ = kAhead;  // of ahead_
};

}  // namespace pellumar::archive
