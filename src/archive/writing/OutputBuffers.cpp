#include "archive/writing/OutputBuffers.h"

#include <utility>

namespace pellumar::archive {

void OutputBuffers::GiveBack::operator()(std::uint8_t* buffer) const {
    std::unique_ptr<std::uint8_t[]> returned(buffer);
    const std::lock_guard lock(owner->mutex_);
    owner->free_.push_back(std::move(returned));
}

OutputBuffers::Buffer OutputBuffers::take() {
    std::unique_ptr<std::uint8_t[]> buffer;
    {
        const std::lock_guard lock(mutex_);
        if (!free_.empty()) {
            buffer = std::move(free_.back());
            free_.pop_back();
        } else {
            // To give it back must not take memory.
            free_.reserve(++made_);
        }
    }
    if (!buffer) {
        // Not zeroed: small results touch little of it.
        buffer.reset(new std::uint8_t[size_]);
    }
    return {buffer.release(), GiveBack{.owner = this}};
}

}  // namespace pellumar::archive
