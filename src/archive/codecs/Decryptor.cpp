#include "archive/codecs/Decryptor.h"

#include <algorithm>
#include <array>
#include <utility>

#include "archive/codecs/AesStream.h"
#include "archive/codecs/Nettle.h"
#include "archive/codecs/TraditionalCipher.h"

namespace pellumar::archive {

namespace {

static_assert(Encryption::kLongestHeader == AesStream::kLongestSalt + AesStream::kCheckSize);
static_assert(Encryption::kLongestTrailer == AesStream::kCodeSize);

class AesDecryptor final : public Decryptor {
  public:
    explicit AesDecryptor(std::unique_ptr<AesStream> stream) : stream_(std::move(stream)) {}

    void decrypt(MutableBytes bytes) override { stream_->decrypt(bytes); }

    Result<> finish(ByteView trailer) override {
        return stream_->hasCode(trailer) ? Result<>() : failure(ErrorCode::kDamagedData);
    }

  private:
    std::unique_ptr<AesStream> stream_;
};

class TraditionalDecryptor final : public Decryptor {
  public:
    explicit TraditionalDecryptor(const Password& password) : cipher_(password) {}

    void decrypt(MutableBytes bytes) override { cipher_.decrypt(bytes); }

    // There is none; the checksum has to do.
    Result<> finish(ByteView /*trailer*/) override { return {}; }

  private:
    TraditionalCipher cipher_;
};

Result<std::unique_ptr<Decryptor>> makeAes(unsigned strength,
                                           const Password& password,
                                           ByteView header) {
    const std::size_t saltSize = AesStream::saltSize(strength);
    auto stream = AesStream::create(strength, password, header.first(saltSize));
    if (!stream) {
        return passOn(stream);
    }
    if (!(*stream)->hasCheckBytes(header.subspan(saltSize))) {
        return failure(ErrorCode::kWrongPassword);
    }
    return std::make_unique<AesDecryptor>(std::move(*stream));
}

Result<> tryAes(unsigned strength, const Password& password, ByteView header) {
    const std::size_t saltSize = AesStream::saltSize(strength);
    auto fits =
        AesStream::isPassword(strength, password, header.first(saltSize), header.subspan(saltSize));
    if (!fits) {
        return passOn(fits);
    }
    return *fits ? Result<>() : failure(ErrorCode::kWrongPassword);
}

Result<std::unique_ptr<Decryptor>> makeTraditional(const Encryption& encryption,
                                                   const Password& password,
                                                   ByteView header) {
    auto decryptor = std::make_unique<TraditionalDecryptor>(password);
    std::array<std::uint8_t, TraditionalCipher::kHeaderSize> plain{};
    std::copy(header.begin(), header.end(), plain.begin());
    decryptor->decrypt(plain);
    if (plain.back() != encryption.check && plain.back() != encryption.otherCheck) {
        return failure(ErrorCode::kWrongPassword);
    }
    return decryptor;
}

}  // namespace

std::size_t Encryption::headerSize() const {
    switch (kind) {
        case Kind::kTraditional:
            return TraditionalCipher::kHeaderSize;
        case Kind::kAes:
            return AesStream::saltSize(aesStrength) + AesStream::kCheckSize;
        case Kind::kNone:
            break;
    }
    return 0;
}

std::size_t Encryption::trailerSize() const {
    return kind == Kind::kAes ? AesStream::kCodeSize : 0;
}

Result<> checkIsInstalled(const Encryption& encryption) {
    const bool isMissing = encryption.kind == Encryption::Kind::kAes && Nettle::get() == nullptr;
    return isMissing ? failure(ErrorCode::kEncryptionNotInstalled) : Result<>();
}

Result<std::unique_ptr<Decryptor>> makeDecryptor(const Encryption& encryption,
                                                 const Password& password,
                                                 ByteView header) {
    return encryption.kind == Encryption::Kind::kAes
               ? makeAes(encryption.aesStrength, password, header)
               : makeTraditional(encryption, password, header);
}

Result<> tryPassword(const Encryption& encryption, const Password& password, ByteView header) {
    if (encryption.kind == Encryption::Kind::kAes) {
        return tryAes(encryption.aesStrength, password, header);
    }
    auto made = makeTraditional(encryption, password, header);
    return made ? Result<>() : passOn(made);
}

}  // namespace pellumar::archive
