#include "archive/codecs/AesDecryptor.h"

#include <openssl/core_names.h>
#include <openssl/crypto.h>

#include <algorithm>

namespace pellumar::archive {

namespace {

constexpr std::size_t kCheckSize = 2;
constexpr int kRounds = 1000;
constexpr std::size_t kLargestKey = 32;

std::size_t keySize(unsigned strength) {
    return 8 * (strength + std::size_t{1});
}

std::size_t saltSize(unsigned strength) {
    return keySize(strength) / 2;
}

const EVP_CIPHER* cipherOf(unsigned strength) {
    return strength == 1   ? EVP_aes_128_ecb()
           : strength == 2 ? EVP_aes_192_ecb()
                           : EVP_aes_256_ecb();
}

// The keys for cipher and code, and the check bytes; wiped at its end.
struct Keys {
    std::array<std::uint8_t, 2 * kLargestKey + kCheckSize> bytes{};

    Keys() = default;
    Keys(const Keys&) = delete;
    Keys& operator=(const Keys&) = delete;
    ~Keys() { OPENSSL_cleanse(bytes.data(), bytes.size()); }
};

}  // namespace

std::size_t AesDecryptor::headerSize(unsigned strength) {
    return saltSize(strength) + kCheckSize;
}

Result<std::unique_ptr<Decryptor>> AesDecryptor::create(unsigned strength,
                                                        const Password& password,
                                                        ByteView header) {
    const std::size_t size = keySize(strength);
    const ByteView salt = header.first(saltSize(strength));
    Keys keys;
    const MutableBytes made = MutableBytes(keys.bytes).first(2 * size + kCheckSize);
    if (PKCS5_PBKDF2_HMAC_SHA1(password.text().data(),
                               static_cast<int>(password.text().size()),
                               salt.data(),
                               static_cast<int>(salt.size()),
                               kRounds,
                               static_cast<int>(made.size()),
                               made.data()) != 1) {
        return failure(ErrorCode::kOutOfMemory);
    }
    if (CRYPTO_memcmp(made.data() + 2 * size, header.data() + salt.size(), kCheckSize) != 0) {
        return failure(ErrorCode::kWrongPassword);
    }
    std::unique_ptr<AesDecryptor> decryptor(new AesDecryptor());
    if (!decryptor->begin(strength, made.first(size), made.subspan(size, size))) {
        return failure(ErrorCode::kOutOfMemory);
    }
    return decryptor;
}

AesDecryptor::~AesDecryptor() {
    // OpenSSL wipes what it holds.
    OPENSSL_cleanse(stream_.data(), stream_.size());
}

bool AesDecryptor::begin(unsigned strength, ByteView cipherKey, ByteView codeKey) {
    cipher_.reset(EVP_CIPHER_CTX_new());
    if (!cipher_ ||
        EVP_EncryptInit_ex(cipher_.get(), cipherOf(strength), nullptr, cipherKey.data(), nullptr) !=
            1 ||
        EVP_CIPHER_CTX_set_padding(cipher_.get(), 0) != 1) {
        return false;
    }
    EVP_MAC* const kind = EVP_MAC_fetch(nullptr, "HMAC", nullptr);
    code_.reset(EVP_MAC_CTX_new(kind));
    EVP_MAC_free(kind);
    std::array<char, 5> digest = {"SHA1"};
    const std::array<OSSL_PARAM, 2> parameters = {
        OSSL_PARAM_construct_utf8_string(OSSL_MAC_PARAM_DIGEST, digest.data(), 0),
        OSSL_PARAM_construct_end()};
    return code_ &&
           EVP_MAC_init(code_.get(), codeKey.data(), codeKey.size(), parameters.data()) == 1;
}

bool AesDecryptor::fillStream() {
    std::array<std::uint8_t, kStream> counters{};
    for (std::size_t at = 0; at < kStream; at += kBlock) {
        storeLittleEndian(MutableBytes(counters), at, ++counter_);
    }
    int made = 0;
    used_ = 0;
    return EVP_EncryptUpdate(cipher_.get(),
                             stream_.data(),
                             &made,
                             counters.data(),
                             static_cast<int>(counters.size())) == 1 &&
           static_cast<std::size_t>(made) == kStream;
}

Result<> AesDecryptor::decrypt(MutableBytes bytes) {
    if (EVP_MAC_update(code_.get(), bytes.data(), bytes.size()) != 1) {
        return failure(ErrorCode::kOutOfMemory);
    }
    while (!bytes.empty()) {
        if (used_ == kStream && !fillStream()) {
            return failure(ErrorCode::kOutOfMemory);
        }
        const std::size_t size = std::min(bytes.size(), kStream - used_);
        for (std::size_t i = 0; i < size; ++i) {
            bytes[i] ^= stream_[used_ + i];
        }
        used_ += size;
        bytes = bytes.subspan(size);
    }
    return {};
}

Result<> AesDecryptor::finish(ByteView trailer) {
    std::array<std::uint8_t, EVP_MAX_MD_SIZE> code{};
    std::size_t size = 0;
    if (EVP_MAC_final(code_.get(), code.data(), &size, code.size()) != 1 || size < kCodeSize) {
        return failure(ErrorCode::kOutOfMemory);
    }
    if (CRYPTO_memcmp(code.data(), trailer.data(), kCodeSize) != 0) {
        return failure(ErrorCode::kDamagedData);
    }
    return {};
}

}  // namespace pellumar::archive
