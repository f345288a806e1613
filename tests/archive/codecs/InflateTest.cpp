#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "BitWriter.h"
#include "Driver.h"
#include "Encoders.h"
#include "archive/codecs/Deflate64Decoder.h"
#include "archive/codecs/InflateDecoder.h"
#include "archive/codecs/OneShotInflater.h"

// DEFLATE three ways: by ISA-L in pieces, by libdeflate at once, and by the plain decoder, which
// the two are held against.
namespace pellumar::archive::test {

namespace {

class Inflate : public testing::Test {
  protected:
    Outcome byPlain(ByteView stream) {
        EXPECT_TRUE(plain_.reset());
        return drive(plain_, stream, anySize(random_), anySize(random_), kMost);
    }
    Outcome byIsal(ByteView stream) {
        EXPECT_TRUE(isal_.reset());
        return drive(isal_, stream, anySize(random_), anySize(random_), kMost);
    }
    // With a byte behind the output that must not change.
    Result<> atOnce(ByteView stream, std::size_t size, Bytes& output) {
        output.assign(size + 1, 0xA5);
        Result<> result = oneShot_.inflate(stream, MutableBytes(output).first(size));
        EXPECT_EQ(output.back(), 0xA5);
        output.pop_back();
        return result;
    }

    // All three read `stream` as `expected`.
    void expectRead(const Bytes& stream, const Bytes& expected, const char* name) {
        const Outcome plain = byPlain(stream);
        EXPECT_TRUE(plain.finished) << name;
        EXPECT_EQ(plain.consumed, stream.size()) << name;
        EXPECT_TRUE(plain.output == expected) << name;
        EXPECT_TRUE(byIsal(stream) == plain) << name;
        Bytes output;
        EXPECT_TRUE(atOnce(stream, expected.size(), output)) << name;
        EXPECT_TRUE(output == expected) << name;
    }

    static constexpr std::size_t kMost = 1U << 24U;

    std::mt19937 random_{21};
    Deflate64Decoder plain_{DeflateVariant::kDeflate};
    InflateDecoder isal_;
    OneShotInflater oneShot_ = OneShotInflater::create().value();
};

Bytes repeated(const Bytes& piece, std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = piece[i % piece.size()];
    }
    return bytes;
}

// Lengths of a code of these symbols, so many bits each.
template <std::size_t kSize>
std::array<std::uint8_t, kSize> lengthsOf(
    const std::vector<std::pair<std::size_t, std::uint8_t>>& symbols) {
    std::array<std::uint8_t, kSize> lengths{};
    for (const auto& [symbol, length] : symbols) {
        lengths[symbol] = length;
    }
    return lengths;
}

constexpr std::size_t kEnd = 256;

TEST_F(Inflate, AllAgreeOnWhatEncodersWrite) {
    for (unsigned round = 0; round < 40; ++round) {
        const std::size_t size = random_() % (std::size_t{1} << (random_() % 20));
        Bytes data = round % 3 == 0 ? noise(size, round) : words(size, round);
        const Bytes more = runs(size, round);
        data.insert(data.end(), more.begin(), more.end());
        expectRead(deflate(data, static_cast<int>(random_() % 13)), data, "libdeflate");
    }
}

TEST_F(Inflate, ReadsStreamsMadeByHand) {
    expectRead({3, 0}, {}, "nothing, in a fixed block");

    BitWriter blocks;
    blocks.bits(2, 3).fixedLiteral('a').fixedLiteral(200).fixedLiteral(kEnd);
    blocks.storedBlock(false, {});
    blocks.storedBlock(false, {1, 2, 3});
    blocks.bits(2, 3).fixedLiteral(kEnd);
    blocks.storedBlock(true, {4});
    expectRead(blocks.bytes(), {'a', 200, 1, 2, 3, 4}, "blocks of all sizes");

    const Bytes data = noise(32768, 23);
    BitWriter farthest;
    farthest.storedBlock(false, data);
    farthest.bits(3, 3).fixedLiteral(285).fixedDistance(29).bits(8191, 13).fixedLiteral(kEnd);
    expectRead(farthest.bytes(), repeated(data, 32768 + 258), "longest match from farthest away");

    // Code 284 with all its extra bits set is a second way to say 258.
    BitWriter other;
    other.bits(3, 3).fixedLiteral('x').fixedLiteral(284).bits(31, 5).fixedDistance(0);
    other.fixedLiteral(kEnd);
    expectRead(other.bytes(), Bytes(259, 'x'), "258 by code 284");

    const auto literals = lengthsOf<258>({{'x', 2}, {'y', 2}, {kEnd, 2}, {257, 2}});
    const auto one = lengthsOf<1>({{0, 1}});
    BitWriter oneDistance;
    oneDistance.dynamicHeader(literals, one).symbol(literals, 'x').symbol(literals, 257);
    oneDistance.bits(0, 1).symbol(literals, kEnd);
    expectRead(oneDistance.bytes(), Bytes(4, 'x'), "a single distance code");

    const std::array<std::uint8_t, 1> none{0};
    BitWriter noDistance;
    noDistance.dynamicHeader(literals, none).symbol(literals, 'y').symbol(literals, kEnd);
    expectRead(noDistance.bytes(), {'y'}, "no distance code");

    const auto onlyEnd = lengthsOf<257>({{kEnd, 1}});
    BitWriter empty;
    empty.dynamicHeader(onlyEnd, none).symbol(onlyEnd, kEnd);
    expectRead(empty.bytes(), {}, "only the end of the block");

    // 2, 3, …, 15, 15: as deep as a code can be, longer than any table looks up at once.
    std::vector<std::pair<std::size_t, std::uint8_t>> deep{{kEnd, 1}, {'p', 15}};
    for (std::uint8_t length = 2; length <= 15; ++length) {
        deep.emplace_back('a' + length - 2, length);
    }
    const auto deepest = lengthsOf<257>(deep);
    BitWriter deepCode;
    deepCode.dynamicHeader(deepest, none);
    for (std::size_t symbol = 'a'; symbol < 'a' + 14; ++symbol) {
        deepCode.symbol(deepest, symbol);
    }
    deepCode.symbol(deepest, 'p').symbol(deepest, kEnd);
    expectRead(deepCode.bytes(),
               {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h', 'i', 'j', 'k', 'l', 'm', 'n', 'p'},
               "codes of up to 15 bits");
}

TEST_F(Inflate, RefusesStreamsThatNoEncoderWrites) {
    struct Case {
        const char* name;
        BitWriter stream;
    };
    std::vector<Case> cases;
    const auto add = [&](const char* name) -> BitWriter& {
        return cases.emplace_back(Case{name, {}}).stream;
    };
    // What ISA-L does not look at; the checksum has to.
    const std::set<std::string> gapsAllowed{
        "too few literal codes", "too few distance codes", "a single distance code of two bits"};
    const std::array<std::uint8_t, 1> none{0};
    const auto codes = lengthsOf<258>({{'x', 2}, {'y', 2}, {kEnd, 2}, {257, 2}});
    add("reserved block type").bits(7, 3);
    add("stored size and its complement").bits(1, 8).bits(3, 16).bits(3, 16);
    add("distance over the start").bits(3, 3).fixedLiteral('a').fixedLiteral(257).fixedDistance(1);
    add("length code 286").bits(3, 3).fixedLiteral('a').fixedLiteral(286).fixedDistance(0);
    add("distance code 30").bits(3, 3).fixedLiteral('a').fixedLiteral(257).fixedDistance(30);
    add("287 literals").dynamicHeader(lengthsOf<287>({{'x', 1}, {kEnd, 1}}), none);
    add("31 distances").dynamicHeader(codes, lengthsOf<31>({{0, 1}, {1, 1}}));
    add("too many literal codes")
        .dynamicHeader(lengthsOf<257>({{'x', 1}, {'y', 1}, {kEnd, 1}}), none);
    add("too few literal codes").dynamicHeader(lengthsOf<257>({{'x', 2}, {kEnd, 1}}), none);
    add("too many distance codes").dynamicHeader(codes, lengthsOf<3>({{0, 1}, {1, 1}, {2, 1}}));
    add("too few distance codes").dynamicHeader(codes, lengthsOf<2>({{0, 2}, {1, 2}}));
    add("a single distance code of two bits").dynamicHeader(codes, lengthsOf<1>({{0, 2}}));
    add("no end of block").dynamicHeader(lengthsOf<257>({{'x', 1}, {'y', 1}}), none);
    add("a match without distances")
        .dynamicHeader(codes, none)
        .symbol(codes, 'x')
        .symbol(codes, 257);
    add("the unused half of a distance code")
        .dynamicHeader(codes, lengthsOf<1>({{0, 1}}))
        .symbol(codes, 'x')
        .symbol(codes, 257)
        .bits(1, 1);
    for (Case& test : cases) {
        const Bytes stream = test.stream.bits(0, 32).bits(0, 32).bits(0, 32).bytes();
        EXPECT_EQ(byPlain(stream).error, ErrorCode::kDamagedData) << test.name;
        if (!gapsAllowed.contains(test.name)) {
            EXPECT_EQ(byIsal(stream).error, ErrorCode::kDamagedData) << test.name;
        }
        Bytes output;
        EXPECT_FALSE(atOnce(stream, 3, output)) << test.name;
    }
}

TEST_F(Inflate, OneShotWantsExactlyOneStream) {
    const Bytes data = words(5000, 24);
    Bytes stream = deflate(data, 6);
    Bytes output;
    EXPECT_EQ(atOnce(stream, data.size() - 1, output).error().code, ErrorCode::kSizeMismatch);
    EXPECT_EQ(atOnce(stream, data.size() + 1, output).error().code, ErrorCode::kSizeMismatch);
    EXPECT_FALSE(atOnce(ByteView(stream).first(stream.size() - 1), data.size(), output));
    EXPECT_EQ(atOnce({}, 0, output).error().code, ErrorCode::kDamagedData);
    stream.push_back(0);
    EXPECT_EQ(atOnce(stream, data.size(), output).error().code, ErrorCode::kSizeMismatch);
}

// 7zz writes neither, but other encoders may.
TEST(Deflate64, ReadsItsLongestMatchFromFarthestAway) {
    const Bytes data = noise(65535, 25);
    BitWriter writer;
    writer.storedBlock(false, data);
    writer.bits(3, 3).fixedLiteral('z');
    writer.fixedLiteral(285).bits(65535, 16).fixedDistance(31).bits(16383, 14);
    writer.fixedLiteral(285).bits(0, 16).fixedDistance(30).bits(1, 14).fixedLiteral(kEnd);
    Bytes expected = data;
    expected.push_back('z');
    expected = repeated(expected, 65536 + 65538);
    for (int i = 0; i < 3; ++i) {
        expected.push_back(expected[expected.size() - 32770]);
    }

    std::mt19937 random(26);
    Deflate64Decoder decoder;
    for (int i = 0; i < 20; ++i) {
        const Outcome outcome = drive(decoder, writer.bytes(), anySize(random), anySize(random));
        EXPECT_TRUE(outcome.finished);
        EXPECT_EQ(outcome.consumed, writer.bytes().size());
        EXPECT_TRUE(outcome.output == expected);
        ASSERT_TRUE(decoder.reset());
    }
}

}  // namespace

}  // namespace pellumar::archive::test
