#include <algorithm>
#include <vector>

#include "archive/codecs/OneShotInflater.h"
#include "archive/writing/DeflateCompressor.h"
#include "fuzz/Require.h"

// Compresses any bytes in chunks that are joined, and gets them back. The first two bytes choose
// how often the others are repeated, and the chunks' size.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using pellumar::fuzz::require;
    namespace archive = pellumar::archive;
    if (size < 2) {
        return 0;
    }
    std::vector<std::uint8_t> content;
    for (unsigned times = 0; times <= data[0]; ++times) {
        content.insert(content.end(), data + 2, data + size);
    }
    const std::size_t chunkSize = (data[1] + 1UL) * 4096;

    archive::DeflateCompressor compressor;
    std::vector<std::uint8_t> stream;
    archive::ByteView rest(content);
    do {
        const archive::ByteView chunk = rest.first(std::min(chunkSize, rest.size()));
        rest = rest.subspan(chunk.size());
        const std::size_t start = stream.size();
        stream.resize(start + archive::DeflateCompressor::kMostOutput);
        const std::size_t partSize =
            compressor.compress(chunk, rest.empty(), archive::MutableBytes(stream).subspan(start));
        stream.resize(start + partSize);
    } while (!rest.empty());

    auto inflater = archive::OneShotInflater::create();
    require(inflater.has_value(), "there is memory for an inflater");
    std::vector<std::uint8_t> output(content.size());
    require(inflater->inflate(stream, output).has_value(), "the parts are one stream");
    require(output == content, "what went in comes out");
    return 0;
}
