#include "archive/codecs/KeyDerivation.h"

#include <gtest/gtest.h>
#include <nettle/pbkdf2.h>

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace pellumar::archive {
namespace {

// Passwords on both sides of a block of SHA-1, beyond which HMAC takes their hash.
TEST(KeyDerivationTest, DerivesWhatNettleDoes) {
    const Nettle* const nettle = Nettle::get();
    ASSERT_NE(nettle, nullptr);
    std::mt19937 random(17);
    for (const std::size_t length : {0, 1, 11, 63, 64, 65, 300}) {
        const std::string text(length, static_cast<char>(random()));
        for (const std::size_t saltSize : {8, 12, 16}) {
            std::vector<std::uint8_t> salt(saltSize);
            for (std::uint8_t& byte : salt) {
                byte = static_cast<std::uint8_t>(random());
            }
            std::vector<std::uint8_t> expected(4 * KeyDerivation::kBlockSize);
            nettle_pbkdf2_hmac_sha1(text.size(),
                                    asBytes(text).data(),
                                    KeyDerivation::kRounds,
                                    salt.size(),
                                    salt.data(),
                                    expected.size(),
                                    expected.data());
            const KeyDerivation derivation(*nettle, Password(text), salt);
            std::vector<std::uint8_t> derived;
            for (std::uint32_t number = 0; number < 4; ++number) {
                const auto block = derivation.block(number);
                derived.insert(derived.end(), block.begin(), block.end());
            }
            EXPECT_EQ(derived, expected) << length << ' ' << saltSize;
        }
    }
}

}  // namespace
}  // namespace pellumar::archive
