#include "archive/codecs/Decryptor.h"

#include <openssl/crypto.h>

#include <array>
#include <utility>

#include "archive/codecs/AesDecryptor.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t kTraditionalHeader = 12;

// One byte's step of the CRC-32, whose table serves as the cipher's.
constexpr std::array<std::uint32_t, 256> kCrcSteps = [] {
    std::array<std::uint32_t, 256> steps{};
    for (std::uint32_t i = 0; i < steps.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value >> 1U) ^ ((value & 1U) != 0 ? 0xEDB88320U : 0);
        }
        steps[i] = value;
    }
    return steps;
}();

// The three keys of APPNOTE 6.1.5, by the steps and constants given there.
class TraditionalDecryptor final : public Decryptor {
  public:
    explicit TraditionalDecryptor(const Password& password) {
        for (const char byte : password.text()) {
            update(static_cast<std::uint8_t>(byte));
        }
    }
    TraditionalDecryptor(const TraditionalDecryptor&) = delete;
    TraditionalDecryptor& operator=(const TraditionalDecryptor&) = delete;
    ~TraditionalDecryptor() override { OPENSSL_cleanse(keys_.data(), sizeof keys_); }

    Result<> decrypt(MutableBytes bytes) override {
        for (std::uint8_t& byte : bytes) {
            const std::uint32_t word = (keys_[2] | 2U) & 0xFFFFU;
            byte ^= static_cast<std::uint8_t>((word * (word ^ 1U)) >> 8U);
            update(byte);
        }
        return {};
    }

    // There is none; the checksum has to do.
    Result<> finish(ByteView /*trailer*/) override { return {}; }

  private:
    static std::uint32_t step(std::uint32_t crc, std::uint32_t byte) {
        return kCrcSteps[(crc ^ byte) & 0xFFU] ^ (crc >> 8U);
    }

    void update(std::uint8_t byte) {
        keys_[0] = step(keys_[0], byte);
        keys_[1] = (keys_[1] + (keys_[0] & 0xFFU)) * 134775813U + 1;
        keys_[2] = step(keys_[2], keys_[1] >> 24U);
    }

    std::array<std::uint32_t, 3> keys_ = {0x12345678, 0x23456789, 0x34567890};
};

Result<std::unique_ptr<Decryptor>> makeTraditional(const Encryption& encryption,
                                                   const Password& password,
                                                   ByteView header) {
    auto decryptor = std::make_unique<TraditionalDecryptor>(password);
    std::array<std::uint8_t, kTraditionalHeader> plain{};
    std::copy(header.begin(), header.end(), plain.begin());
    if (auto done = decryptor->decrypt(plain); !done) {
        return passOn(done);
    }
    if (plain.back() != encryption.check && plain.back() != encryption.otherCheck) {
        return failure(ErrorCode::kWrongPassword);
    }
    return decryptor;
}

}  // namespace

std::size_t Encryption::headerSize() const {
    switch (kind) {
        case Kind::kTraditional:
            return kTraditionalHeader;
        case Kind::kAes:
            return AesDecryptor::headerSize(aesStrength);
        case Kind::kNone:
            break;
    }
    return 0;
}

std::size_t Encryption::trailerSize() const {
    return kind == Kind::kAes ? AesDecryptor::kCodeSize : 0;
}

Result<std::unique_ptr<Decryptor>> makeDecryptor(const Encryption& encryption,
                                                 const Password& password,
                                                 ByteView header) {
    return encryption.kind == Encryption::Kind::kAes
               ? AesDecryptor::create(encryption.aesStrength, password, header)
               : makeTraditional(encryption, password, header);
}

}  // namespace pellumar::archive
