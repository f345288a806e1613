#include "archive/codecs/StoredDecoder.h"

#include <algorithm>

namespace pellumar::archive {

Result<Decoder::Step> StoredDecoder::decode(ByteView input, MutableBytes output) {
    const auto size = static_cast<std::size_t>(
        std::min<std::uint64_t>(left_, std::min(input.size(), output.size())));
    std::copy_n(input.begin(), size, output.begin());
    left_ -= size;
    return Step{.consumed = size, .produced = size, .finished = left_ == 0};
}

Result<> StoredDecoder::reset() {
    left_ = size_;
    return {};
}

}  // namespace pellumar::archive
