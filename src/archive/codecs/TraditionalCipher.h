#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "archive/base/Bytes.h"
#include "archive/base/Password.h"

namespace pellumar::archive {

// The keys of traditional encryption (APPNOTE 6.1), which is easily broken: for archives that other
// programs made or must be able to read. Its steps are given there, and no library has them.
// Belongs to one thread; wipes its keys at its end.
class TraditionalCipher {
  public:
    static constexpr std::size_t kHeaderSize = 12;

    explicit TraditionalCipher(const Password& password);
    TraditionalCipher(const TraditionalCipher&) = delete;
    TraditionalCipher& operator=(const TraditionalCipher&) = delete;
    ~TraditionalCipher();

    // The next bytes, in place.
    void decrypt(MutableBytes bytes);
    void encrypt(MutableBytes bytes);

  private:
    [[nodiscard]] std::uint8_t next() const;
    void update(std::uint8_t plain);

    std::array<std::uint32_t, 3> keys_ = {0x12345678, 0x23456789, 0x34567890};
};

}  // namespace pellumar::archive
