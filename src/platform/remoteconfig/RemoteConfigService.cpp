#include "platform/remoteconfig/RemoteConfigService.h"

#include <utility>

#include "platform/remoteconfig/RemoteConfigWorker.h"

namespace pellumar {

RemoteConfigService::RemoteConfigService(const Options& options, Console& console)
    : worker_(std::make_shared<Worker>(options, console)) {}

RemoteConfigService::~RemoteConfigService() {
    stop();
}

void RemoteConfigService::start() {
    thread_ = std::thread([worker = worker_, stop = stop_.get_token()] { worker->run(stop); });
}

void RemoteConfigService::stop() {
    stop_.request_stop();
    if (!thread_.joinable()) {
        return;
    }
    if (thread_.get_id() == std::this_thread::get_id()) {
        thread_.detach();
    } else {
        thread_.join();
    }
}

void RemoteConfigService::fetchWithExpirationDuration(std::chrono::seconds duration,
                                                      FetchHandler handler) {
    worker_->add(Worker::Fetch{duration, std::move(handler)});
}

void RemoteConfigService::activateWithCompletion(ActivationHandler completion) {
    worker_->add(Worker::Activation{std::move(completion)});
}

RemoteConfigValue RemoteConfigService::objectForKeyedSubscript(const QString& key) const {
    return {.stringValue = worker_->active()->value(key, QLatin1String(""))};
}

QSet<QString> RemoteConfigService::keysWithPrefix(const QString& prefix) const {
    const std::shared_ptr<const ConfigValues> active = worker_->active();
    QSet<QString> keys;
    keys.reserve(active->size());
    for (auto value = active->begin(); value != active->end(); ++value) {
        if (value.key().startsWith(prefix)) {
            keys.insert(value.key());
        }
    }
    return keys;
}

}  // namespace pellumar
