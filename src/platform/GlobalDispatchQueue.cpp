#include "platform/GlobalDispatchQueue.h"

#include <QThread>
#include <algorithm>
#include <utility>

namespace pellumar {

GlobalDispatchQueue::GlobalDispatchQueue() {
    threads_.setMaxThreadCount(std::max(2, QThread::idealThreadCount()));
}

void GlobalDispatchQueue::async(std::function<void()> work) {
    threads_.start(std::move(work));
}

}  // namespace pellumar
