#include "Encoders.h"

#include <bzlib.h>
#include <gtest/gtest.h>
#include <libdeflate.h>
#include <lzma.h>
#include <zstd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <stdexcept>
#include <string_view>

#include "LegacyEncoders.h"
#include "archive/format/ZipFormat.h"
#include "support/FileContents.h"
#include "support/Process.h"
#include "support/TemporaryFolder.h"

namespace pellumar::archive::test {

namespace {

// Room for whatever an encoder makes of `plain`.
Bytes roomFor(ByteView plain) {
    return Bytes(plain.size() + plain.size() / 8 + 4096);
}

// An encoder that fails leaves nothing to test with.
void require(bool ok, const char* what) {
    if (!ok) {
        throw std::runtime_error(what);
    }
}

}  // namespace

Bytes noise(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    Bytes bytes(size);
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(random());
    }
    return bytes;
}

Bytes words(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    constexpr std::array<std::string_view, 8> kWords{
        "the ", "archive ", "of ", "entries\n", "and ", "directories ", "is ", "compressed. "};
    Bytes bytes;
    while (bytes.size() < size) {
        const std::string_view word = kWords[random() % kWords.size()];
        bytes.insert(bytes.end(), word.begin(), word.end());
        bytes.push_back(static_cast<std::uint8_t>('a' + random() % 26));
    }
    bytes.resize(size);
    return bytes;
}

Bytes runs(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    Bytes bytes = noise(std::min<std::size_t>(size, 70), seed);
    while (bytes.size() < size) {
        const std::size_t length = 1 + random() % (random() % 8 == 0 ? 90000 : 400);
        const std::size_t distance = 1 + random() % std::min<std::size_t>(bytes.size(), 65536);
        for (std::size_t i = 0; i < length; ++i) {
            bytes.push_back(bytes[bytes.size() - distance]);
        }
        bytes.push_back(static_cast<std::uint8_t>(random()));
    }
    bytes.resize(size);
    return bytes;
}

Bytes deflate(ByteView plain, int level) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(level), &libdeflate_free_compressor);
    Bytes out = roomFor(plain);
    out.resize(libdeflate_deflate_compress(
        compressor.get(), plain.data(), plain.size(), out.data(), out.size()));
    require(!out.empty(), "libdeflate_deflate_compress");
    return out;
}

Bytes bzip2(ByteView plain) {
    Bytes out = roomFor(plain);
    auto size = static_cast<unsigned>(out.size());
    auto* input = reinterpret_cast<char*>(const_cast<std::uint8_t*>(plain.data()));
    char nothing = 0;
    require(BZ2_bzBuffToBuffCompress(reinterpret_cast<char*>(out.data()),
                                     &size,
                                     plain.empty() ? &nothing : input,
                                     static_cast<unsigned>(plain.size()),
                                     1,
                                     0,
                                     0) == BZ_OK,
            "BZ2_bzBuffToBuffCompress");
    out.resize(size);
    return out;
}

Bytes lzma(ByteView plain, bool endMarker, std::uint32_t dictionary) {
    lzma_options_lzma options{};
    lzma_lzma_preset(&options, 1);
    options.dict_size = 1U << 16U;
    options.ext_flags = endMarker ? LZMA_LZMA1EXT_ALLOW_EOPM : 0;
    lzma_set_ext_size(options, plain.size());
    // The header may claim any dictionary from the one used up.
    Bytes header{9, 20, 5, 0, 0, 0, 0, 0, 0};
    header[4] = static_cast<std::uint8_t>((options.pb * 5 + options.lp) * 9 + options.lc);
    storeLittleEndian<std::uint32_t>(header, 5, dictionary);
    const std::array<lzma_filter, 2> filters{
        {{LZMA_FILTER_LZMA1EXT, &options}, {LZMA_VLI_UNKNOWN, nullptr}}};
    Bytes out = roomFor(plain);
    std::size_t size = header.size();
    std::copy(header.begin(), header.end(), out.begin());
    const lzma_ret result = lzma_raw_buffer_encode(
        filters.data(), nullptr, plain.data(), plain.size(), out.data(), &size, out.size());
    require(result == LZMA_OK, "lzma_raw_buffer_encode");
    out.resize(size);
    return out;
}

Bytes xz(ByteView plain) {
    Bytes out = roomFor(plain);
    std::size_t size = 0;
    const lzma_ret result = lzma_easy_buffer_encode(
        0, LZMA_CHECK_CRC32, nullptr, plain.data(), plain.size(), out.data(), &size, out.size());
    require(result == LZMA_OK, "lzma_easy_buffer_encode");
    out.resize(size);
    return out;
}

Bytes zstandard(ByteView plain) {
    Bytes out = roomFor(plain);
    out.resize(ZSTD_compress(out.data(), out.size(), plain.data(), plain.size(), 3));
    return out;
}

Encoded bySevenZip(const std::string& method,
                   const Bytes& plain,
                   const std::vector<std::string>& options) {
    const pellumar::test::TemporaryFolder folder;
    pellumar::test::writeFile(folder / "data", plain);
    std::vector<std::string> command = {"7zz", "a", "-tzip", "-mm=" + method, "-mmt=1"};
    command.insert(command.end(), options.begin(), options.end());
    command.insert(command.end(), {"a.zip", "data"});
    const auto made = pellumar::test::runProcess(command, folder.path());
    require(made.exitCode == 0, "7zz");
    const Bytes archive = pellumar::test::readFile(folder / "a.zip");
    // The local file header, APPNOTE 4.3.7.
    const std::size_t start = format::kLocalFileHeaderSize +
                              loadLittleEndian<std::uint16_t>(archive, 26) +
                              loadLittleEndian<std::uint16_t>(archive, 28);
    const std::size_t size = loadLittleEndian<std::uint32_t>(archive, 18);
    const ByteView data = ByteView(archive).subspan(start, size);
    return {.name = "7zz " + method,
            .parameters = {.method = loadLittleEndian<std::uint16_t>(archive, 8),
                           .flags = loadLittleEndian<std::uint16_t>(archive, 6),
                           .uncompressedSize = plain.size()},
            .compressed = Bytes(data.begin(), data.end()),
            .plain = plain};
}

std::vector<Encoded> everyMethod(std::size_t size) {
    std::vector<Encoded> all;
    const std::array<Bytes, 5> data{{{}, {42}, noise(size, 1), words(size, 2), runs(size, 3)}};
    for (const Bytes& plain : data) {
        const auto add =
            [&](const char* name, std::uint16_t method, Bytes compressed, std::uint16_t flags = 0) {
                all.push_back({name, {method, flags, plain.size()}, std::move(compressed), plain});
            };
        add("stored", format::kMethodStored, plain);
        for (const int level : {0, 1, 6, 12}) {
            add("deflate", format::kMethodDeflate, deflate(plain, level));
        }
        add("bzip2", format::kMethodBzip2, bzip2(plain));
        add("lzma", format::kMethodLzma, lzma(plain, false));
        add("lzma, marker", format::kMethodLzma, lzma(plain, true), format::kFlagLzmaEndMarker);
        add("shrink", format::kMethodShrink, shrink(plain));
        for (unsigned factor = 1; factor <= 4; ++factor) {
            add("reduce",
                static_cast<std::uint16_t>(format::kMethodReduce1 + factor - 1),
                reduce(plain, factor));
        }
        for (const bool literals : {true, false}) {
            for (const bool large : {true, false}) {
                const ImplodeOptions options{.literalCode = literals, .largeWindow = large};
                add("implode", format::kMethodImplode, implode(plain, options), options.flags());
            }
        }
        add("xz", format::kMethodXz, xz(plain));
        add("zstandard", format::kMethodZstandard, zstandard(plain));
        Bytes frames = zstandard(ByteView(plain).first(plain.size() / 2));
        const Bytes second = zstandard(ByteView(plain).subspan(plain.size() / 2));
        frames.insert(frames.end(), second.begin(), second.end());
        add("zstandard, two frames", format::kMethodZstandardOld, frames);
        if (plain.size() > 1) {
            all.push_back(bySevenZip("Deflate64", plain));
            all.push_back(bySevenZip("PPMd", plain));
        }
    }
    return all;
}

}  // namespace pellumar::archive::test
