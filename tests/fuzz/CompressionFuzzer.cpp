#include <algorithm>
#include <vector>

#include "archive/codecs/OneShotInflater.h"
#include "archive/writing/DeflateCompressor.h"
#include "fuzz/Require.h"

// Compresses any bytes in chunks that are joined and know what went before them, and gets them
// back. The first two bytes choose how often the others are repeated, and the chunks' size.
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
    std::size_t done = 0;
    do {
        const std::size_t chunk = std::min(chunkSize, content.size() - done);
        const std::size_t window = std::min(done, archive::DeflateCompressor::kWindow);
        const std::size_t start = stream.size();
        stream.resize(start + archive::DeflateCompressor::kMostOutput);
        const std::size_t partSize =
            compressor.compress(archive::ByteView(content).subspan(done - window, window + chunk),
                                done + chunk == content.size(),
                                archive::MutableBytes(stream).subspan(start),
                                std::nullopt,
                                window);
        stream.resize(start + partSize);
        done += chunk;
    } while (done < content.size());

    auto inflater = archive::OneShotInflater::create();
    require(inflater.has_value(), "there is memory for an inflater");
    std::vector<std::uint8_t> output(content.size());
    require(inflater->inflate(stream, output).has_value(), "the parts are one stream");
    require(output == content, "what went in comes out");
    return 0;
}
