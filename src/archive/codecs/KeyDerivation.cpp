#include "archive/codecs/KeyDerivation.h"

#include <string.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace pellumar::archive {

namespace {

// A code behind the block of the key: their bits, as SHA-1 ends with them.
constexpr unsigned kBits = 8 * (SHA1_BLOCK_SIZE + SHA1_DIGEST_SIZE);

// As it stands in memory in big-endian order.
std::uint32_t bigEndian(std::uint32_t value) {
    return std::endian::native == std::endian::little ? __builtin_bswap32(value) : value;
}

}  // namespace

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): Nettle writes what it keys.
KeyDerivation::KeyDerivation(const Nettle& nettle, const Password& password, ByteView salt)
    : nettle_(nettle), salt_(salt) {
    nettle_.setCodeKey(&keyed_, password.text().size(), asBytes(password.text()).data());
}

KeyDerivation::~KeyDerivation() {
    ::explicit_bzero(&keyed_, sizeof keyed_);
}

KeyDerivation::Block KeyDerivation::block(std::uint32_t number) const {
    Block sum = firstRound(number);
    State words{};
    std::memcpy(words.data(), sum.data(), sum.size());
    Padded padded{};
    std::copy(sum.begin(), sum.end(), padded.begin());
    padded[kBlockSize] = 0x80;
    padded[SHA1_BLOCK_SIZE - 2] = static_cast<std::uint8_t>(kBits >> 8U);
    padded[SHA1_BLOCK_SIZE - 1] = static_cast<std::uint8_t>(kBits);
    for (unsigned round = 1; round < kRounds; ++round) {
        compressInto(padded, keyed_.inner.state);
        const State made = compressInto(padded, keyed_.outer.state);
        for (std::size_t i = 0; i < words.size(); ++i) {
            words[i] ^= made[i];
        }
    }
    std::memcpy(sum.data(), words.data(), sum.size());
    ::explicit_bzero(words.data(), sizeof words);
    ::explicit_bzero(padded.data(), padded.size());
    return sum;
}

KeyDerivation::Block KeyDerivation::firstRound(std::uint32_t number) const {
    hmac_sha1_ctx code = keyed_;
    const std::uint32_t counted = bigEndian(number + 1);
    std::array<std::uint8_t, sizeof counted> count{};
    std::memcpy(count.data(), &counted, count.size());
    Block made{};
    nettle_.updateCode(&code, salt_.size(), salt_.data());
    nettle_.updateCode(&code, count.size(), count.data());
    nettle_.finishCode(&code, made.size(), made.data());
    ::explicit_bzero(&code, sizeof code);
    return made;
}

KeyDerivation::State KeyDerivation::compressInto(Padded& padded, const std::uint32_t* start) const {
    State state;
    std::memcpy(state.data(), start, sizeof state);
    nettle_.compress(state.data(), padded.data());
    for (std::uint32_t& word : state) {
        word = bigEndian(word);
    }
    std::memcpy(padded.data(), state.data(), sizeof state);
    return state;
}

}  // namespace pellumar::archive
