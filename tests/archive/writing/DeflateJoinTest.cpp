#include "archive/writing/DeflateJoin.h"

#include <gtest/gtest.h>
#include <libdeflate.h>

#include "archive/codecs/BitWriter.h"
#include "archive/writing/DeflateCompressor.h"
#include "archive/writing/SampleContent.h"

namespace pellumar::archive {
namespace {

using pellumar::test::sampleContent;
using pellumar::test::SampleKind;
using test::BitWriter;
using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kEndOfBlock = 256;

// What a stream inflates to; empty if it is damaged, not at its end or of another size.
Bytes inflated(ByteView stream, std::size_t size) {
    Bytes content(size + 1);
    std::size_t consumed = 0;
    std::size_t produced = 0;
    libdeflate_decompressor* const inflater = libdeflate_alloc_decompressor();
    const auto result = libdeflate_deflate_decompress_ex(inflater,
                                                         stream.data(),
                                                         stream.size(),
                                                         content.data(),
                                                         content.size(),
                                                         &consumed,
                                                         &produced);
    libdeflate_free_decompressor(inflater);
    const bool whole = result == LIBDEFLATE_SUCCESS && consumed == stream.size();
    content.resize(whole && produced == size ? size : 0);
    return content;
}

Bytes compressed(DeflateCompressor& compressor, ByteView chunk, bool last = true) {
    Bytes output(DeflateCompressor::kMostOutput);
    output.resize(compressor.compress(chunk, last, output));
    return output;
}

// A stream of one fixed block that ends at any bit of a byte: a literal from 144 on has nine bits.
Bytes streamOf(const Bytes& nineBitLiterals) {
    BitWriter writer;
    writer.bits(1, 1).bits(1, 2);
    for (const std::uint8_t literal : nineBitLiterals) {
        writer.fixedLiteral(literal);
    }
    return writer.fixedLiteral(kEndOfBlock).bytes();
}

// Six such literals make 3 + 54 + 7 = 64 bits: the last block ends on a byte boundary. A join that
// takes the bits used of the last byte for none of a new one put its next block seven bits early;
// with seven or eight used bits the header of the aligning block itself crosses the boundary.
TEST(DeflateJoinTest, JoinsAfterABlockThatEndsAtAnyBit) {
    DeflateBlockWalker walker;
    for (std::size_t literals = 0; literals < 16; ++literals) {
        const Bytes content(literals, 0xC3);
        const Bytes stream = streamOf(content);
        Bytes joined = stream;
        joined.resize(stream.size() + kDeflateJoinRoom);
        const auto size = openDeflateEnd(walker, joined, stream.size());
        ASSERT_TRUE(size) << literals;
        joined.resize(*size);
        joined.insert(joined.end(), stream.begin(), stream.end());

        Bytes twice(2 * literals, 0xC3);
        EXPECT_EQ(inflated(joined, twice.size()), twice) << literals;
    }
}

TEST(DeflateJoinTest, FindsTheLastBlockBehindOnesOfEveryType) {
    Bytes literals(257, 0);
    literals['a'] = 1;
    literals[kEndOfBlock] = 1;
    BitWriter writer;
    writer.storedBlock(false, {1, 2, 3}).bits(2, 3);  // then a fixed block with a match
    writer.fixedLiteral('x').fixedLiteral(257).fixedDistance(0).fixedLiteral(kEndOfBlock);
    const std::size_t before = writer.bytes().size();
    writer.dynamicHeader(literals, Bytes{0, 1}).symbol(literals, 'a').symbol(literals, kEndOfBlock);
    const Bytes expected = {1, 2, 3, 'x', 'x', 'x', 'x', 'a'};
    ASSERT_EQ(inflated(writer.bytes(), expected.size()), expected);

    DeflateBlockWalker walker;
    const auto layout = walker.walk(writer.bytes());
    ASSERT_TRUE(layout);
    EXPECT_EQ((layout->end + 7) / 8, writer.bytes().size());
    EXPECT_EQ((layout->lastBlock + 7) / 8, before);
    EXPECT_EQ(writer.bytes()[layout->lastBlock / 8] >> layout->lastBlock % 8 & 1, 1);
}

TEST(DeflateJoinTest, FindsNoEndInDamagedStreams) {
    DeflateBlockWalker walker;
    DeflateCompressor compressor;
    const Bytes content = sampleContent(SampleKind::kBinary, 50'000);
    const Bytes stream = compressed(compressor, content);
    ASSERT_TRUE(walker.walk(stream));
    for (std::size_t size = 0; size < stream.size(); ++size) {
        // In a buffer of its own, so that reading behind it is found out.
        const Bytes cut(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(size));
        ASSERT_FALSE(walker.walk(cut)) << size;
    }
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        Bytes damaged = stream;
        damaged[random() % 200] = static_cast<std::uint8_t>(random());
        const auto layout = walker.walk(damaged);
        ASSERT_TRUE(!layout || layout->end <= damaged.size() * 8);
    }
    EXPECT_FALSE(walker.walk(Bytes{0x07}));                          // block type 3
    EXPECT_FALSE(walker.walk(Bytes{0x01, 0x01, 0x00, 0x00, 0x00}));  // length and complement
    EXPECT_FALSE(walker.walk(Bytes(64, 0x00)));                      // stored blocks without end
}

// The match that comes last in the front may say more than it, by a few bytes or by many; its block
// may end with it, and is not the last.
TEST(DeflateJoinTest, DropsAFrontThatEndsAnywhere) {
    const auto writeTo = [](BitWriter& writer) {
        Bytes literals(258, 0);
        literals['a'] = 1;
        literals[257] = 2;
        literals[kEndOfBlock] = 2;
        for (int block = 0; block < 3; ++block) {
            writer.dynamicHeader(literals, Bytes{1}, block == 2);
            for (int i = 0; i < 40 + block; ++i) {
                writer.symbol(literals, 'a').symbol(literals, 257).bits(0, 1);
            }
            writer.symbol(literals, kEndOfBlock);
        }
    };
    BitWriter writer;
    writeTo(writer);
    const Bytes content(4UL * (40 + 41 + 42), 'a');
    ASSERT_EQ(inflated(writer.bytes(), content.size()), content);

    DeflateBlockWalker walker;
    std::size_t dropped = 0;
    for (std::size_t front = 1; front < content.size(); ++front) {
        Bytes buffer = writer.bytes();
        const std::size_t size = buffer.size();
        buffer.resize(size + kDeflateJoinRoom);
        if (const auto left = openDeflateEnds(walker, buffer, size, content, front)) {
            Bytes whole(storedDeflateSize(front));
            storeAsDeflate(ByteView(content).first(front), false, whole);
            whole.insert(whole.end(), buffer.begin(), buffer.begin() + static_cast<long>(*left));
            whole.insert(whole.end(), kEmptyDeflateStream.begin(), kEmptyDeflateStream.end());
            ASSERT_EQ(inflated(whole, content.size()), content) << front;
            ++dropped;
        } else {
            buffer.resize(size);
            ASSERT_EQ(buffer, writer.bytes()) << front;
        }
    }
    EXPECT_GT(dropped, content.size() / 2);
}

class DeflateCompressorTest : public testing::TestWithParam<SampleKind> {
  protected:
    // The parts of `content`, cut at `sizes`, joined into one stream; each is told what went before
    // it, as far as `window` says.
    Bytes joined(const Bytes& content,
                 std::initializer_list<std::size_t> sizes,
                 std::size_t window = 0) {
        Bytes stream;
        std::size_t done = 0;
        const auto add = [&](std::size_t size, bool last) {
            const std::size_t known = std::min(window, done);
            Bytes part(DeflateCompressor::kMostOutput);
            part.resize(compressor_.compress(ByteView(content).subspan(done - known, known + size),
                                             last,
                                             part,
                                             std::nullopt,
                                             known));
            stream.insert(stream.end(), part.begin(), part.end());
            done += size;
        };
        for (const std::size_t size : sizes) {
            add(size, false);
        }
        add(content.size() - done, true);
        return stream;
    }

    DeflateCompressor compressor_;
};

TEST_P(DeflateCompressorTest, JoinsPartsIntoOneStream) {
    std::mt19937 random(static_cast<std::uint32_t>(GetParam()));
    for (int round = 0; round < 40; ++round) {
        const std::size_t first = random() % (round < 30 ? 3000 : 300'000);
        const std::size_t second = random() % (round < 30 ? 300 : 300'000);
        const std::size_t third = random() % 70'000;
        const Bytes content = sampleContent(GetParam(), first + second + third, random());
        for (const std::size_t window : {std::size_t{0}, DeflateCompressor::kWindow}) {
            const Bytes stream = joined(content, {first, second}, window);
            ASSERT_EQ(inflated(stream, content.size()), content) << first << " " << second;
            ASSERT_LE(stream.size(), storedDeflateSize(content.size()) + 30);
        }
    }
}

TEST_P(DeflateCompressorTest, TakesEverySizeAroundPiecesAndChunks) {
    constexpr std::size_t kPiece = CompressibilityProbe::kProbedPiece;
    const Bytes all = sampleContent(GetParam(), DeflateCompressor::kChunkSize);
    for (const std::size_t size : {std::size_t{0},
                                   std::size_t{1},
                                   std::size_t{4095},
                                   std::size_t{4096},
                                   kPiece - 1,
                                   kPiece,
                                   kPiece + 1,
                                   2 * kPiece - 1,
                                   2 * kPiece,
                                   DeflateCompressor::kChunkSize - 1,
                                   DeflateCompressor::kChunkSize}) {
        const Bytes content(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(size));
        ASSERT_EQ(inflated(joined(content, {}), size), content) << size;
        ASSERT_EQ(inflated(joined(content, {size}), size), content) << size;
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds,
                         DeflateCompressorTest,
                         testing::ValuesIn(pellumar::test::kSampleKinds));

// What stands before a chunk is not told again.
TEST(DeflateWindowTest, IsMadeUseOf) {
    const Bytes page = sampleContent(SampleKind::kText, DeflateCompressor::kWindow);
    Bytes twice = page;
    twice.insert(twice.end(), page.begin(), page.end());
    DeflateCompressor compressor;
    Bytes part(DeflateCompressor::kMostOutput);
    const std::size_t size =
        compressor.compress(twice, false, part, std::nullopt, DeflateCompressor::kWindow);
    EXPECT_LT(size, compressed(compressor, page).size() / 10);
}

// Noise costs five bytes a block; the text between it is compressed as if it stood alone.
TEST(CompressibilityTest, IsJudgedInPieces) {
    DeflateCompressor compressor;
    const Bytes noise = sampleContent(SampleKind::kNoise, 300'000);
    EXPECT_EQ(compressed(compressor, noise).size(), storedDeflateSize(noise.size()));

    const Bytes text = sampleContent(SampleKind::kText, 200'000);
    const std::size_t textSize = compressed(compressor, text).size();
    Bytes mixed = noise;
    mixed.insert(mixed.end(), text.begin(), text.end());
    mixed.insert(mixed.end(), noise.begin(), noise.end());
    const std::size_t mixedSize = compressed(compressor, mixed).size();
    EXPECT_LT(mixedSize, 2 * noise.size() + textSize + 2 * CompressibilityProbe::kProbedPiece);
    EXPECT_LT(textSize, text.size() / 2);
}

// Bytes spread evenly that repeat: a histogram alone would take them for noise.
TEST(CompressibilityTest, RepetitionsAmongEvenlySpreadBytesAreFound) {
    const Bytes pattern = sampleContent(SampleKind::kNoise, 1500);
    Bytes content;
    while (content.size() < 200'000) {
        content.insert(content.end(), pattern.begin(), pattern.end());
    }
    DeflateCompressor compressor;
    EXPECT_LT(compressed(compressor, content).size(), content.size() / 10);
}

}  // namespace
}  // namespace pellumar::archive
