#include "support/collector/Collector.h"

#include <utility>

#include "support/collector/BatchReader.h"

namespace pellumar::test {

Collector::Collector() : server_([this](const HttpRequest& request) { return take(request); }) {}

void Collector::setAnswers(std::deque<HttpAnswer> answers) {
    const std::lock_guard lock(mutex_);
    answers_ = std::move(answers);
}

std::vector<CollectedBatch> Collector::batches() const {
    const std::lock_guard lock(mutex_);
    return batches_;
}

QStringList Collector::names() const {
    QStringList names;
    for (const CollectedBatch& batch : batches()) {
        for (const CollectedRecord& record : batch.records) {
            names.append(record.name);
        }
    }
    return names;
}

QStringList Collector::faults() const {
    const std::lock_guard lock(mutex_);
    return faults_;
}

bool Collector::waitForBatches(std::size_t count, std::chrono::milliseconds timeout) const {
    return waitFor([count](const auto& batches) { return batches.size() >= count; }, timeout);
}

bool Collector::waitFor(const std::function<bool(const std::vector<CollectedBatch>&)>& is,
                        std::chrono::milliseconds timeout) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, timeout, [&] { return is(batches_); });
}

HttpAnswer Collector::take(const HttpRequest& request) {
    const std::lock_guard lock(mutex_);
    batches_.push_back(readBatch(request, faults_));
    changed_.notify_all();
    if (answers_.empty()) {
        return LoopbackServer::answer(200, "{}");
    }
    HttpAnswer answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
}

}  // namespace pellumar::test
