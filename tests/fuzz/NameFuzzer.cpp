#include <algorithm>
#include <string>
#include <vector>

#include "archive/format/Utf8.h"
#include "archive/reading/NameDecoder.h"
#include "fuzz/Require.h"

namespace {

using pellumar::archive::ByteView;
using pellumar::archive::RawName;

// Cuts the input into names: a byte of their length and flags, then the name, then as many bytes of
// extra fields as the length's upper bits say.
std::vector<RawName> namesIn(ByteView input) {
    std::vector<RawName> names;
    while (!input.empty()) {
        const std::uint8_t head = input.front();
        input = input.subspan(1);
        const std::size_t length = std::min<std::size_t>(head & 0x1FU, input.size());
        const std::size_t extra =
            std::min<std::size_t>(std::size_t{16} * (head >> 6U), input.size() - length);
        names.push_back({.bytes = input.first(length),
                         .utf8Flag = (head & 0x20U) != 0,
                         .extra = input.subspan(length, extra)});
        input = input.subspan(length + extra);
    }
    return names;
}

}  // namespace

// Decodes any names of one archive: whatever they are, text in UTF-8 comes out, the same each time.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using pellumar::fuzz::require;
    const std::vector<RawName> names = namesIn({data, size});
    pellumar::archive::NameDecoder decoder;
    for (const RawName& name : names) {
        decoder.consider(name);
    }
    decoder.decide();
    for (const RawName& name : names) {
        std::string storage;
        const auto decoded = decoder.decode(name, storage);
        require(pellumar::archive::format::isUtf8(decoded.text), "a name is UTF-8");
        require(decoded.text.empty() == name.bytes.empty() || !name.extra.empty(),
                "a name has letters where it has bytes");
        std::string again;
        require(decoder.decode(name, again).text == decoded.text, "a name is the same each time");
    }
    return 0;
}
