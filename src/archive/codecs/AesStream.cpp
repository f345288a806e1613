#include "archive/codecs/AesStream.h"

#include <string.h>

#include <algorithm>
#include <cstring>

#include "archive/codecs/KeyDerivation.h"

namespace pellumar::archive {

namespace {

std::size_t keySize(unsigned strength) {
    return 8 * (strength + std::size_t{1});
}

// In words; the compiler takes several at once.
void combineWith(MutableBytes bytes, const std::uint8_t* other) {
    std::uint8_t* const data = bytes.data();
    std::size_t i = 0;
    for (; i + sizeof(std::uint64_t) <= bytes.size(); i += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::uint64_t with = 0;
        std::memcpy(&word, data + i, sizeof word);
        std::memcpy(&with, other + i, sizeof with);
        word ^= with;
        std::memcpy(data + i, &word, sizeof word);
    }
    for (; i < bytes.size(); ++i) {
        data[i] ^= other[i];
    }
}

}  // namespace

std::size_t AesStream::saltSize(unsigned strength) {
    return keySize(strength) / 2;
}

Result<std::unique_ptr<AesStream>> AesStream::create(unsigned strength,
                                                     const Password& password,
                                                     ByteView salt) {
    const Nettle* const nettle = Nettle::get();
    if (nettle == nullptr) {
        return failure(ErrorCode::kEncryptionNotInstalled);
    }
    const KeyDerivation derivation(*nettle, password, salt);
    const std::size_t size = 2 * keySize(strength) + kCheckSize;
    // The keys for cipher and code, and the check bytes; the last block is cut off.
    std::array<std::uint8_t, 4 * KeyDerivation::kBlockSize> keys{};
    for (std::size_t done = 0; done < size; done += KeyDerivation::kBlockSize) {
        auto block = derivation.block(static_cast<std::uint32_t>(done / KeyDerivation::kBlockSize));
        std::copy(block.begin(), block.end(), keys.begin() + static_cast<std::ptrdiff_t>(done));
        ::explicit_bzero(block.data(), block.size());
    }
    std::unique_ptr<AesStream> stream(new AesStream(*nettle, strength, ByteView(keys).first(size)));
    ::explicit_bzero(keys.data(), keys.size());
    return stream;
}

Result<bool> AesStream::isPassword(unsigned strength,
                                   const Password& password,
                                   ByteView salt,
                                   ByteView expected) {
    const Nettle* const nettle = Nettle::get();
    if (nettle == nullptr) {
        return failure(ErrorCode::kEncryptionNotInstalled);
    }
    // Whatever the strength, they lie within the last block.
    const std::size_t start = 2 * keySize(strength);
    const auto number = static_cast<std::uint32_t>(start / KeyDerivation::kBlockSize);
    auto block = KeyDerivation(*nettle, password, salt).block(number);
    const bool equal =
        nettle->areEqual(
            block.data() + start % KeyDerivation::kBlockSize, expected.data(), kCheckSize) != 0;
    ::explicit_bzero(block.data(), block.size());
    return equal;
}

AesStream::AesStream(const Nettle& nettle, unsigned strength, ByteView keys)
    : nettle_(nettle), strength_(strength) {
    const std::size_t size = keySize(strength);
    if (strength == 1) {
        nettle_.setKey128(&cipher_.by128, keys.data());
    } else if (strength == 2) {
        nettle_.setKey192(&cipher_.by192, keys.data());
    } else {
        nettle_.setKey256(&cipher_.by256, keys.data());
    }
    nettle_.setCodeKey(&code_, size, keys.subspan(size).data());
    const ByteView check = keys.subspan(2 * size);
    std::copy(check.begin(), check.end(), check_.begin());
}

AesStream::~AesStream() {
    ::explicit_bzero(&cipher_, sizeof cipher_);
    ::explicit_bzero(&code_, sizeof code_);
    ::explicit_bzero(ahead_.data(), ahead_.size());
}

void AesStream::decrypt(MutableBytes bytes) {
    nettle_.updateCode(&code_, bytes.size(), bytes.data());
    combine(bytes);
}

void AesStream::encrypt(MutableBytes bytes) {
    combine(bytes);
    nettle_.updateCode(&code_, bytes.size(), bytes.data());
}

void AesStream::combine(MutableBytes bytes) {
    while (!bytes.empty()) {
        if (used_ == kAhead) {
            fillAhead();
        }
        const std::size_t size = std::min(bytes.size(), kAhead - used_);
        combineWith(bytes.first(size), ahead_.data() + used_);
        used_ += size;
        bytes = bytes.subspan(size);
    }
}

void AesStream::fillAhead() {
    ahead_.fill(0);
    for (std::size_t at = 0; at < kAhead; at += AES_BLOCK_SIZE) {
        storeLittleEndian(MutableBytes(ahead_), at, ++counter_);
    }
    if (strength_ == 1) {
        nettle_.encrypt128(&cipher_.by128, kAhead, ahead_.data(), ahead_.data());
    } else if (strength_ == 2) {
        nettle_.encrypt192(&cipher_.by192, kAhead, ahead_.data(), ahead_.data());
    } else {
        nettle_.encrypt256(&cipher_.by256, kAhead, ahead_.data(), ahead_.data());
    }
    used_ = 0;
}

std::array<std::uint8_t, AesStream::kCodeSize> AesStream::code() {
    std::array<std::uint8_t, kCodeSize> code{};
    nettle_.finishCode(&code_, code.size(), code.data());
    return code;
}

bool AesStream::hasCode(ByteView expected) {
    return nettle_.areEqual(code().data(), expected.data(), kCodeSize) != 0;
}

bool AesStream::hasCheckBytes(ByteView expected) const {
    return nettle_.areEqual(check_.data(), expected.data(), kCheckSize) != 0;
}

}  // namespace pellumar::archive
