#include "archive/codecs/Encryptor.h"

#include <sys/random.h>

#include <array>
#include <utility>

#include "archive/codecs/AesStream.h"
#include "archive/codecs/TraditionalCipher.h"

namespace pellumar::archive {

namespace {

// So few bytes come whole or not at all (getrandom(2)).
Result<> fillRandomly(MutableBytes bytes) {
    if (::getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        return systemFailure(ErrorCode::kReadFailed);
    }
    return {};
}

class AesEncryptor final : public Encryptor {
  public:
    AesEncryptor(std::unique_ptr<AesStream> stream, ByteView salt)
        : stream_(std::move(stream)), header_(salt.begin(), salt.end()) {
        const ByteView check = stream_->checkBytes();
        header_.insert(header_.end(), check.begin(), check.end());
    }

    Result<std::vector<std::uint8_t>> header(std::uint8_t /*check*/) override { return header_; }

    void encrypt(MutableBytes bytes) override { stream_->encrypt(bytes); }

    std::vector<std::uint8_t> trailer() override {
        const auto code = stream_->code();
        return {code.begin(), code.end()};
    }

  private:
    std::unique_ptr<AesStream> stream_;
    std::vector<std::uint8_t> header_;
};

class TraditionalEncryptor final : public Encryptor {
  public:
    explicit TraditionalEncryptor(const Password& password) : cipher_(password) {}

    Result<std::vector<std::uint8_t>> header(std::uint8_t check) override {
        std::vector<std::uint8_t> header(TraditionalCipher::kHeaderSize);
        if (auto filled = fillRandomly(header); !filled) {
            return passOn(filled);
        }
        header.back() = check;
        cipher_.encrypt(header);
        return header;
    }

    void encrypt(MutableBytes bytes) override { cipher_.encrypt(bytes); }

    std::vector<std::uint8_t> trailer() override { return {}; }

  private:
    TraditionalCipher cipher_;
};

}  // namespace

std::uint8_t aesStrengthOf(NewEncryption encryption) {
    switch (encryption) {
        case NewEncryption::kAes128:
            return 1;
        case NewEncryption::kAes192:
            return 2;
        case NewEncryption::kAes256:
            return 3;
        case NewEncryption::kTraditional:
            break;
    }
    return 0;
}

Result<std::unique_ptr<Encryptor>> makeEncryptor(NewEncryption encryption,
                                                 const Password& password) {
    const unsigned strength = aesStrengthOf(encryption);
    if (strength == 0) {
        return std::make_unique<TraditionalEncryptor>(password);
    }
    std::array<std::uint8_t, AesStream::kLongestSalt> buffer{};
    const MutableBytes salt = MutableBytes(buffer).first(AesStream::saltSize(strength));
    if (auto filled = fillRandomly(salt); !filled) {
        return passOn(filled);
    }
    auto stream = AesStream::create(strength, password, salt);
    if (!stream) {
        return passOn(stream);
    }
    return std::make_unique<AesEncryptor>(std::move(*stream), salt);
}

}  // namespace pellumar::archive
