#include "engine/AppFileOpener.h"

#include <utility>

namespace pellumar {
namespace {

struct Slot {
    std::optional<QUrl> url;
    std::weak_ptr<AppFileOpenerDelegate> delegate;
};

Slot& slot() {
    static Slot theSlot;
    return theSlot;
}

}  // namespace

std::optional<QUrl> AppFileOpener::url() {
    return slot().url;
}

void AppFileOpener::setUrl(const std::optional<QUrl>& url) {
    slot().url = url;
    const std::shared_ptr<AppFileOpenerDelegate> taker = delegate();
    if (url && taker) {
        // A copy: the delegate empties the slot, and `url` may be what was read from there.
        taker->appFileOpenerDidReceive(QUrl(*url));
    }
}

std::shared_ptr<AppFileOpenerDelegate> AppFileOpener::delegate() {
    return slot().delegate.lock();
}

void AppFileOpener::setDelegate(std::weak_ptr<AppFileOpenerDelegate> delegate) {
    slot().delegate = std::move(delegate);
}

}  // namespace pellumar
