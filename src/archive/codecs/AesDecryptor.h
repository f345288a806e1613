#pragma once

#include <openssl/evp.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "archive/codecs/Decryptor.h"

namespace pellumar::archive {

// WinZip's AES, by OpenSSL: keys by PBKDF2 with HMAC-SHA1 and 1,000 rounds out of password and
// salt, AES in counter mode with a little-endian counter from 1, and the first ten bytes of the
// HMAC-SHA1 of what is encrypted.
class AesDecryptor final : public Decryptor {
  public:
    static constexpr std::size_t kCodeSize = 10;

    // Salt and two check bytes.
    [[nodiscard]] static std::size_t headerSize(unsigned strength);

    // As makeDecryptor().
    [[nodiscard]] static Result<std::unique_ptr<Decryptor>> create(unsigned strength,
                                                                   const Password& password,
                                                                   ByteView header);

    AesDecryptor(const AesDecryptor&) = delete;
    AesDecryptor& operator=(const AesDecryptor&) = delete;
    AesDecryptor(AesDecryptor&&) = delete;
    AesDecryptor& operator=(AesDecryptor&&) = delete;
    ~AesDecryptor() override;

    [[nodiscard]] Result<> decrypt(MutableBytes bytes) override;
    [[nodiscard]] Result<> finish(ByteView trailer) override;

  private:
    struct CipherDeleter {
        void operator()(EVP_CIPHER_CTX* cipher) const { EVP_CIPHER_CTX_free(cipher); }
    };
    struct CodeDeleter {
        void operator()(EVP_MAC_CTX* code) const { EVP_MAC_CTX_free(code); }
    };

    static constexpr std::size_t kBlock = 16;
    static constexpr std::size_t kStream = 256 * kBlock;

    AesDecryptor() = default;
    [[nodiscard]] bool begin(unsigned strength, ByteView cipherKey, ByteView codeKey);
    // Makes the next bytes that the data is combined with.
    [[nodiscard]] bool fillStream();

    std::unique_ptr<EVP_CIPHER_CTX, CipherDeleter> cipher_;
    std::unique_ptr<EVP_MAC_CTX, CodeDeleter> code_;
    std::uint64_t counter_ = 0;
    std::array<std::uint8_t, kStream> stream_{};
    std::size_t used_ = kStream;  // of stream_
};

}  // namespace pellumar::archive
