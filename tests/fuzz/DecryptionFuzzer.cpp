#include <algorithm>
#include <string>
#include <vector>

#include "archive/codecs/Decryptor.h"
#include "archive/codecs/Encryptor.h"
#include "fuzz/Require.h"

namespace {

using namespace pellumar::archive;
using pellumar::fuzz::require;

std::vector<std::uint8_t> decrypt(Decryptor& decryptor, ByteView bytes, std::size_t piece) {
    std::vector<std::uint8_t> out(bytes.begin(), bytes.end());
    for (std::size_t at = 0; at < out.size(); at += piece) {
        decryptor.decrypt(MutableBytes(out).subspan(at, std::min(piece, out.size() - at)));
    }
    return out;
}

}  // namespace

// Encrypts any bytes and decrypts them again, in other pieces, and with a byte that is wrong; and
// decrypts any bytes as a header and data. The first four bytes choose way, pieces and damage.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::uint8_t kCheck = 0x5A;
    if (size < 4) {
        return 0;
    }
    const auto way = static_cast<NewEncryption>(data[0] % 4);
    const std::size_t piece = 1UL + data[1];
    const ByteView content(data + 4, size - 4);
    const Password password(std::string(reinterpret_cast<const char*>(data), 4));
    const bool isAes = way != NewEncryption::kTraditional;
    const Encryption told{.kind = isAes ? Encryption::Kind::kAes : Encryption::Kind::kTraditional,
                          .aesStrength = aesStrengthOf(way),
                          .check = kCheck,
                          .otherCheck = kCheck};

    auto encryptor = makeEncryptor(way, password);
    require(encryptor.has_value(), "there is an encryptor");
    const auto header = (*encryptor)->header(kCheck);
    require(header && header->size() == told.headerSize(), "the header is as long as it is told");
    std::vector<std::uint8_t> secret(content.begin(), content.end());
    for (std::size_t at = 0; at < secret.size(); at += piece) {
        (*encryptor)
            ->encrypt(MutableBytes(secret).subspan(at, std::min(piece, secret.size() - at)));
    }
    const auto trailer = (*encryptor)->trailer();
    require(trailer.size() == told.trailerSize(), "the trailer is as long as it is told");

    auto decryptor = makeDecryptor(told, password, *header);
    require(decryptor.has_value(), "the password fits");
    const auto plain = decrypt(**decryptor, secret, 1UL + data[2]);
    require(std::equal(plain.begin(), plain.end(), content.begin(), content.end()),
            "what was encrypted comes out");
    require((*decryptor)->finish(trailer).has_value(), "the code is right");
    if (isAes && !secret.empty()) {
        auto other = makeDecryptor(told, password, *header);
        secret[data[3] % secret.size()] ^= 1;
        static_cast<void>(decrypt(**other, secret, piece));
        require(!(*other)->finish(trailer), "a wrong byte is found");
    }
    if (content.size() >= told.headerSize() + told.trailerSize()) {
        const auto any = makeDecryptor(told, password, content.first(told.headerSize()));
        if (any) {
            static_cast<void>(decrypt(**any, content.subspan(told.headerSize()), piece));
            static_cast<void>((*any)->finish(content.last(told.trailerSize())));
        }
    }
    return 0;
}
