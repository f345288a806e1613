#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "archive/base/Bytes.h"
#include "archive/base/Password.h"
#include "archive/codecs/Nettle.h"

namespace pellumar::archive {

// PBKDF2 with HMAC-SHA1 and WinZip's 1,000 rounds (RFC 8018, 5.2), block by block, so that a
// password can be tried by the one that tells. Takes two thirds of the time of Nettle's own, which
// pads the same block anew each round. Wipes what it knows at its end.
class KeyDerivation {
  public:
    static constexpr unsigned kRounds = 1000;
    static constexpr std::size_t kBlockSize = SHA1_DIGEST_SIZE;
    using Block = std::array<std::uint8_t, kBlockSize>;

    // `salt` and `nettle` live longer than this.
    KeyDerivation(const Nettle& nettle, const Password& password, ByteView salt);
    KeyDerivation(const KeyDerivation&) = delete;
    KeyDerivation& operator=(const KeyDerivation&) = delete;
    ~KeyDerivation();

    // That of this number, from 0 on: the derived bytes from number * kBlockSize on.
    [[nodiscard]] Block block(std::uint32_t number) const;

  private:
    using State = std::array<std::uint32_t, kBlockSize / sizeof(std::uint32_t)>;
    // One block of SHA-1 that holds a code and its padding.
    using Padded = std::array<std::uint8_t, SHA1_BLOCK_SIZE>;

    [[nodiscard]] Block firstRound(std::uint32_t number) const;
    // Puts what SHA-1 makes of `padded`, going on from `start`, in front of its padding; returns
    // it.
    State compressInto(Padded& padded, const std::uint32_t* start) const;

    const Nettle& nettle_;
    const ByteView salt_;
    hmac_sha1_ctx keyed_;  // with the password, before any data
};

}  // namespace pellumar::archive
