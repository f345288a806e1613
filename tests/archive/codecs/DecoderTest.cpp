#include "archive/codecs/Decoder.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "Driver.h"
#include "Encoders.h"
#include "archive/base/Crc32.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::test {

namespace {

std::unique_ptr<Decoder> decoderFor(const Encoded& encoded) {
    auto decoder = makeDecoder(encoded.parameters);
    EXPECT_TRUE(decoder) << encoded.name;
    return std::move(decoder).value();
}

Outcome whole(const Encoded& encoded) {
    return {.output = encoded.plain,
            .consumed = encoded.compressed.size(),
            .finished = true,
            .error = {},
            .broken = false};
}

void expectSame(const Outcome& got, const Outcome& expected, const std::string& name) {
    EXPECT_TRUE(got == expected) << name << ": " << got.output.size() << " bytes out of "
                                 << expected.output.size() << ", consumed " << got.consumed
                                 << " of " << expected.consumed << ", finished " << got.finished
                                 << ", failed " << got.error.has_value() << ", broken "
                                 << got.broken;
}

bool isZstandard(const Encoded& encoded) {
    return encoded.parameters.method == format::kMethodZstandard ||
           encoded.parameters.method == format::kMethodZstandardOld;
}

}  // namespace

TEST(Decoder, GivesTheSameInAnyPieces) {
    std::mt19937 random(7);
    for (const Encoded& encoded : everyMethod(80000)) {
        const auto decoder = decoderFor(encoded);
        const auto check = [&](const PieceSize& in, const PieceSize& out) {
            expectSame(drive(*decoder, encoded.compressed, in, out), whole(encoded), encoded.name);
            ASSERT_TRUE(decoder->reset());
        };
        check(always(SIZE_MAX), always(1 << 20));
        check(always(1), always(1));
        for (int i = 0; i < 5; ++i) {
            check(anySize(random), anySize(random));
        }
    }
}

TEST(Decoder, ReadsWhatSevenZipWrites) {
    const Bytes plain = runs(3000000, 4);
    for (const char* method : {"Deflate", "Deflate64", "BZip2", "LZMA", "PPMd"}) {
        const Encoded encoded = bySevenZip(method, plain);
        ASSERT_TRUE(isSupportedMethod(encoded.parameters.method)) << method;
        ASSERT_NE(encoded.parameters.method, format::kMethodStored) << method;
        expectSame(drive(*decoderFor(encoded), encoded.compressed, always(5000), always(70000)),
                   whole(encoded),
                   encoded.name);
    }
}

// Small models that have to start anew, or are cut down, many times.
TEST(Decoder, ReadsPpmdOfAnySize) {
    Bytes plain = words(500000, 5);
    for (const Bytes& more : {noise(200000, 6), runs(500000, 7), words(300000, 8)}) {
        plain.insert(plain.end(), more.begin(), more.end());
    }
    for (const std::vector<std::string>& options :
         std::vector<std::vector<std::string>>{{"-mx=1", "-mmem=1m", "-mo=16"},
                                               {"-mx=9", "-mmem=1m", "-mo=16"},
                                               {"-mx=9", "-mmem=2m", "-mo=5"},
                                               {"-mx=5", "-mmem=1m", "-mo=2"},
                                               {"-mx=5"}}) {
        const Encoded encoded = bySevenZip("PPMd", plain, options);
        ASSERT_EQ(encoded.parameters.method, format::kMethodPpmd);
        expectSame(drive(*decoderFor(encoded), encoded.compressed, always(5000), always(70000)),
                   whole(encoded),
                   options.front());
    }
    // Order 1 and the method "freeze" are none that can be.
    for (const Bytes& head : {Bytes{0, 0, 0, 0, 0, 0}, Bytes{1, 0x20, 0, 0, 0, 0}}) {
        const auto decoder = makeDecoder({.method = format::kMethodPpmd, .uncompressedSize = 1});
        EXPECT_EQ(drive(**decoder, head, always(6), always(1)).error,
                  ErrorCode::kUnsupportedMethod);
    }
}

TEST(Decoder, NeverFinishesATruncatedStream) {
    std::mt19937 random(8);
    for (const Encoded& encoded : everyMethod(3000)) {
        const auto decoder = decoderFor(encoded);
        const std::size_t size = encoded.compressed.size();
        for (std::size_t cut = 0; cut < size; cut += size < 200 ? 1 : 1 + random() % 40) {
            const ByteView start = ByteView(encoded.compressed).first(cut);
            const Outcome outcome = drive(*decoder, start, anySize(random), anySize(random));
            // Two frames may be cut between them.
            const bool firstFrame =
                isZstandard(encoded) && outcome.output.size() == encoded.plain.size() / 2;
            // Its end marker is not missed.
            const bool allOfPpmd =
                encoded.parameters.method == format::kMethodPpmd && outcome.output == encoded.plain;
            EXPECT_TRUE(!outcome.finished || firstFrame || allOfPpmd)
                << encoded.name << " cut to " << cut;
            EXPECT_FALSE(outcome.error || outcome.broken) << encoded.name << " cut to " << cut;
            ASSERT_TRUE(decoder->reset());
        }
    }
}

TEST(Decoder, LeavesWhatFollowsTheStream) {
    std::mt19937 random(9);
    for (Encoded& encoded : everyMethod(5000)) {
        const Outcome expected = whole(encoded);
        const Bytes trailing = noise(1 + random() % 40, 10);
        encoded.compressed.insert(encoded.compressed.end(), trailing.begin(), trailing.end());
        const auto decoder = decoderFor(encoded);
        for (int i = 0; i < 30; ++i) {
            const Outcome outcome =
                drive(*decoder, encoded.compressed, anySize(random), anySize(random));
            if (isZstandard(encoded)) {
                // There it has to be another frame.
                EXPECT_TRUE(!outcome.finished || outcome.error) << encoded.name;
            } else {
                expectSame(outcome, expected, encoded.name);
            }
            ASSERT_TRUE(decoder->reset());
        }
    }
}

TEST(Decoder, SurvivesDamage) {
    std::mt19937 random(11);
    for (const Encoded& encoded : everyMethod(2000)) {
        const auto decoder = decoderFor(encoded);
        for (int i = 0; i < 300 && !encoded.compressed.empty(); ++i) {
            Bytes damaged = encoded.compressed;
            for (unsigned flips = 1 + random() % 4; flips > 0; --flips) {
                damaged[random() % damaged.size()] ^= static_cast<std::uint8_t>(1U << random() % 8);
            }
            const Outcome outcome =
                drive(*decoder, damaged, anySize(random), anySize(random), 1 << 20);
            EXPECT_FALSE(outcome.broken) << encoded.name;
            EXPECT_LE(outcome.output.size(),
                      mostUncompressedSize(encoded.parameters.method, damaged.size()));
            ASSERT_TRUE(decoder->reset());
            if (i % 50 == 0) {
                expectSame(drive(*decoder, encoded.compressed, anySize(random), anySize(random)),
                           whole(encoded),
                           encoded.name + " after damage");
                ASSERT_TRUE(decoder->reset());
            }
        }
    }
}

TEST(Decoder, RefusesWindowsOverTheLimit) {
    const Bytes plain = words(1000, 12);
    const auto outcome = [&](std::uint16_t method, std::uint64_t size, const Bytes& compressed) {
        const auto decoder = makeDecoder({.method = method, .uncompressedSize = size});
        return drive(**decoder, compressed, always(1000), always(100000));
    };
    const auto xzWith = [&](std::uint8_t dictionary) {
        Bytes stream = xz(plain);
        // In the properties of LZMA2 (0x21, one byte of them), in the block header, which ends with
        // its checksum.
        constexpr std::size_t kHeaderAt = 12;
        const std::size_t size = stream[kHeaderAt] * std::size_t{4};
        const Bytes filter{0x21, 1};
        *(std::search(stream.begin() + kHeaderAt, stream.end(), filter.begin(), filter.end()) + 2) =
            dictionary;
        storeLittleEndian(stream,
                          kHeaderAt + size,
                          crc32(kCrc32OfNothing, ByteView(stream).subspan(kHeaderAt, size)));
        return outcome(format::kMethodXz, plain.size(), stream);
    };
    EXPECT_EQ(xzWith(30).output, plain);  // 128 MiB
    EXPECT_EQ(xzWith(31).error, ErrorCode::kOutOfMemory);

    // One raw block of a byte, in a frame with that window.
    const auto zstandardWith = [&](unsigned windowLog) {
        const auto window = static_cast<std::uint8_t>((windowLog - 10) << 3U);
        const Bytes frame{0x28, 0xB5, 0x2F, 0xFD, 0, window, 1 | (1 << 3), 0, 0, 'x'};
        return outcome(format::kMethodZstandard, 1, frame);
    };
    EXPECT_EQ(zstandardWith(27).output, Bytes{'x'});
    EXPECT_EQ(zstandardWith(28).error, ErrorCode::kOutOfMemory);

    // LZMA's claim counts for no more than the entry's size.
    const Bytes claim = lzma(plain, false, UINT32_MAX);
    EXPECT_EQ(outcome(format::kMethodLzma, plain.size(), claim).output, plain);
    EXPECT_EQ(outcome(format::kMethodLzma, kLargestWindow + 1, claim).error,
              ErrorCode::kOutOfMemory);
}

TEST(Decoder, RefusesLzmaHeadersThatCannotBe) {
    const Bytes plain = words(1000, 13);
    const auto errorWith = [&](std::size_t at, std::uint8_t value) {
        Bytes compressed = lzma(plain, false);
        compressed[at] = value;
        const auto decoder =
            makeDecoder({.method = format::kMethodLzma, .uncompressedSize = plain.size()});
        return drive(**decoder, compressed, always(3), always(1000)).error;
    };
    EXPECT_EQ(errorWith(0, 4), std::nullopt);  // any version
    EXPECT_EQ(errorWith(2, 6), ErrorCode::kDamagedData);
    EXPECT_EQ(errorWith(4, 225), ErrorCode::kDamagedData);
    EXPECT_EQ(errorWith(4, 4 + 9), ErrorCode::kUnsupportedMethod);  // lc 4, lp 1
}

TEST(Decoder, KnowsTheBoundsOfItsMethods) {
    EXPECT_EQ(mostUncompressedSize(format::kMethodStored, 7), 7U);
    EXPECT_EQ(mostUncompressedSize(format::kMethodDeflate, UINT64_MAX / 1032),
              UINT64_MAX / 1032 * 1032);
    EXPECT_EQ(mostUncompressedSize(format::kMethodDeflate, UINT64_MAX / 1032 + 1), UINT64_MAX);
    EXPECT_EQ(mostUncompressedSize(format::kMethodXz, 0), UINT64_MAX);
    // The bound is sharp: zeros come near it.
    const Bytes zeros(10000000);
    const std::uint64_t most =
        mostUncompressedSize(format::kMethodDeflate, deflate(zeros, 12).size());
    EXPECT_GE(most, zeros.size());
    EXPECT_LE(most, zeros.size() + zeros.size() / 20);

    EXPECT_FALSE(needsLargeWindow(format::kMethodXz, 8U << 20U));
    EXPECT_TRUE(needsLargeWindow(format::kMethodXz, (8U << 20U) + 1));
    EXPECT_FALSE(needsLargeWindow(format::kMethodDeflate, UINT64_MAX));
}

}  // namespace pellumar::archive::test
