#include "archive/Samples.h"

#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>

namespace pellumar::bench {
namespace {

std::vector<std::string> makeWords(std::mt19937& random) {
    std::vector<std::string> words(4096);
    for (std::string& word : words) {
        word.resize(2 + random() % 9);
        std::generate(word.begin(), word.end(), [&random] {
            return static_cast<char>('a' + std::min(random() % 26, random() % 26));
        });
        word += random() % 12 == 0 ? '\n' : ' ';
    }
    return words;
}

void appendText(std::vector<std::uint8_t>& out, std::size_t size, std::mt19937& random) {
    const std::vector<std::string> words = makeWords(random);
    while (out.size() < size) {
        // The minimum of several picks makes the first words frequent.
        const std::size_t pick = std::min({random(), random(), random()}) % words.size();
        const std::string& word = words[std::min(pick, random() % words.size())];
        out.insert(out.end(), word.begin(), word.end());
    }
}

void appendRecords(std::vector<std::uint8_t>& out, std::size_t size, std::mt19937& random) {
    for (std::uint32_t address = 0x4000; out.size() < size;
         address += static_cast<std::uint32_t>(16 + random() % 64)) {
        for (const std::uint32_t field :
             {address, static_cast<std::uint32_t>(random() % 200), 7U}) {
            out.resize(out.size() + sizeof(field));
            archive::storeLittleEndian(out, out.size() - sizeof(field), field);
        }
    }
}

void appendNoise(std::vector<std::uint8_t>& out, std::size_t size, std::mt19937& random) {
    out.resize(size);
    std::generate(
        out.begin(), out.end(), [&random] { return static_cast<std::uint8_t>(random()); });
}

}  // namespace

std::vector<std::uint8_t> makeSample(SampleKind kind, std::size_t size) {
    std::mt19937 random(20240517);  // NOLINT(bugprone-*): the same bytes each time are the point
    std::vector<std::uint8_t> out;
    out.reserve(size + 16);
    switch (kind) {
        case SampleKind::kText:
            appendText(out, size, random);
            break;
        case SampleKind::kRecords:
            appendRecords(out, size, random);
            break;
        case SampleKind::kNoise:
            appendNoise(out, size, random);
            break;
    }
    out.resize(size);
    return out;
}

std::vector<std::uint8_t> deflateByZlib(archive::ByteView content) {
    z_stream stream{};
    if (deflateInit2(
            &stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) !=
        Z_OK) {
        std::abort();
    }
    std::vector<std::uint8_t> out(deflateBound(&stream, content.size()));
    stream.next_in = content.data();
    stream.avail_in = static_cast<uInt>(content.size());
    stream.next_out = out.data();
    stream.avail_out = static_cast<uInt>(out.size());
    if (deflate(&stream, Z_FINISH) != Z_STREAM_END) {
        std::abort();
    }
    out.resize(stream.total_out);
    deflateEnd(&stream);
    return out;
}

}  // namespace pellumar::bench
