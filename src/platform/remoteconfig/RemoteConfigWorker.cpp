#include "platform/remoteconfig/RemoteConfigWorker.h"

#include <utility>

#include "platform/RetryAfter.h"

namespace pellumar {
namespace {

constexpr int kOk = 200;
constexpr int kNotModified = 304;
constexpr int kUnauthorized = 401;
constexpr int kForbidden = 403;
constexpr int kTooManyRequests = 429;

// For a server that has had enough and does not say for how long, in milliseconds.
constexpr qint64 kUnnamedHold = 60'000;

}  // namespace

RemoteConfigService::Worker::Worker(const Options& options, Console& console)
    : options_(options),
      store_(options.folder, console),
      active_(std::make_shared<const ConfigValues>(store_.active())) {}

void RemoteConfigService::Worker::add(Task task) {
    {
        const std::lock_guard lock(tasksMutex_);
        if (!stopped_) {
            tasks_.push_back(std::move(task));
            taskAdded_.notify_one();
            return;
        }
    }
    cancel(task);
}

std::shared_ptr<const ConfigValues> RemoteConfigService::Worker::active() const {
    const std::lock_guard lock(activeMutex_);
    return active_;
}

void RemoteConfigService::Worker::run(const std::stop_token& stop) {
    fetched_ = store_.fetched();
    hold_ = store_.hold();
    while (const std::optional<Task> task = next(stop)) {
        if (const auto* fetch = std::get_if<Fetch>(&*task)) {
            fetchForAll(*fetch, stop);
        } else {
            activate(std::get<Activation>(*task).handler);
        }
    }
    std::deque<Task> left;
    {
        const std::lock_guard lock(tasksMutex_);
        stopped_ = true;
        left.swap(tasks_);
    }
    for (const Task& task : left) {
        cancel(task);
    }
}

std::optional<RemoteConfigService::Worker::Task> RemoteConfigService::Worker::next(
    const std::stop_token& stop) {
    std::unique_lock lock(tasksMutex_);
    taskAdded_.wait(lock, stop, [this] { return !tasks_.empty(); });
    if (stop.stop_requested()) {
        return std::nullopt;
    }
    Task task = std::move(tasks_.front());
    tasks_.pop_front();
    return task;
}

std::vector<RemoteConfigService::Worker::Fetch> RemoteConfigService::Worker::takeFetches(
    std::chrono::seconds maximumAge) {
    std::vector<Fetch> fetches;
    std::deque<Task> others;
    const std::lock_guard lock(tasksMutex_);
    for (Task& task : tasks_) {
        auto* fetch = std::get_if<Fetch>(&task);
        if (fetch != nullptr && fetch->maximumAge >= maximumAge) {
            fetches.push_back(std::move(*fetch));
        } else {
            others.push_back(std::move(task));
        }
    }
    tasks_.swap(others);
    return fetches;
}

RemoteConfigService::Worker::Outcome RemoteConfigService::Worker::failure(
    const QString& description) {
    return {RemoteConfigFetchStatus::kFailure, RemoteConfigError{description}};
}

void RemoteConfigService::Worker::cancel(const Task& task) {
    const Outcome outcome = failure(QStringLiteral("cancelled"));
    if (const auto* fetch = std::get_if<Fetch>(&task)) {
        fetch->handler(outcome.status, outcome.error);
    } else {
        std::get<Activation>(task).handler(false, outcome.error);
    }
}

void RemoteConfigService::Worker::fetchForAll(const Fetch& first, const std::stop_token& stop) {
    const Outcome outcome = fetch(first.maximumAge, stop);
    // Those that came meanwhile would only ask the same again.
    const std::vector<Fetch> others = takeFetches(first.maximumAge);
    first.handler(outcome.status, outcome.error);
    for (const Fetch& other : others) {
        other.handler(outcome.status, outcome.error);
    }
}

bool RemoteConfigService::Worker::isFromHere(const QString& address) const {
    return address == options_.endpoint.address;
}

bool RemoteConfigService::Worker::isHeldOff(qint64 now) const {
    // One from further ahead than any hold reaches was made before the clock was set back.
    return hold_ && isFromHere(hold_->address) && hold_->until > now &&
           hold_->until - now <= kLongestHold;
}

RemoteConfigService::Worker::Outcome RemoteConfigService::Worker::fetch(
    std::chrono::seconds maximumAge,
    const std::stop_token& stop) {
    if (options_.endpoint.address.isEmpty()) {
        return failure(QStringLiteral("no address is set"));
    }
    const std::optional<QUrl> url = options_.endpoint.evaluationUrl();
    if (!url) {
        return failure(QStringLiteral("not an address: ") + options_.endpoint.address);
    }
    const qint64 now = options_.now();
    if (fetched_ && isFromHere(fetched_->address)) {
        // Negative if the clock was set back: nobody knows how old it is.
        const qint64 age = now - fetched_->fetchedAt;
        if (age >= 0 && std::chrono::milliseconds(age) < maximumAge) {
            return {RemoteConfigFetchStatus::kSuccess, std::nullopt};
        }
    }
    if (isHeldOff(now)) {
        return {RemoteConfigFetchStatus::kThrottled, std::nullopt};
    }
    const HttpResponse response = ask(*url, stop);
    return response.failure ? failure(*response.failure) : judge(response);
}

HttpResponse RemoteConfigService::Worker::ask(const QUrl& url, const std::stop_token& stop) {
    if (installationIdentifier_.isEmpty()) {
        installationIdentifier_ = store_.installationIdentifier();
    }
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    if (fetched_ && isFromHere(fetched_->address) && !fetched_->etag.isEmpty()) {
        request.setRawHeader("If-None-Match", fetched_->etag);
    }
    if (!options_.endpoint.bearerToken.isEmpty()) {
        request.setRawHeader("Authorization", "Bearer " + options_.endpoint.bearerToken.toUtf8());
    }
    if (!options_.endpoint.apiKey.isEmpty()) {
        request.setRawHeader("X-API-Key", options_.endpoint.apiKey.toUtf8());
    }
    return post(request, evaluationRequest(installationIdentifier_), options_.timeout, stop);
}

RemoteConfigService::Worker::Outcome RemoteConfigService::Worker::judge(
    const HttpResponse& response) {
    if (response.status == kNotModified && fetched_ && isFromHere(fetched_->address)) {
        FetchedConfig same = *fetched_;
        same.fetchedAt = options_.now();
        return take(std::move(same));
    }
    if (response.status != kOk) {
        return refuse(response);
    }
    std::optional<ConfigValues> values = parseEvaluation(response.body);
    if (!values) {
        return failure(QStringLiteral("the answer cannot be read"));
    }
    return take({.values = std::move(*values),
                 .etag = response.etag,
                 .address = options_.endpoint.address,
                 .fetchedAt = options_.now()});
}

RemoteConfigService::Worker::Outcome RemoteConfigService::Worker::refuse(
    const HttpResponse& response) {
    const qint64 now = options_.now();
    std::optional<qint64> until = retryMoment(response.retryAfter, now);
    if (response.status == kTooManyRequests && !until) {
        until = now + kUnnamedHold;
    }
    const bool throttled = response.status == kTooManyRequests ||
                           response.status == kUnauthorized || response.status == kForbidden;
    if (throttled && until) {
        hold_ = Hold{.address = options_.endpoint.address, .until = *until};
        // If it cannot be kept, the next process asks too early; nothing can be done about that.
        static_cast<void>(store_.keepHold(*hold_));
        return {RemoteConfigFetchStatus::kThrottled, std::nullopt};
    }
    const QString details = refusalDetails(response.body);
    return failure(QStringLiteral("the server answers %1").arg(response.status) +
                   (details.isEmpty() ? QString() : QStringLiteral(": ") + details));
}

RemoteConfigService::Worker::Outcome RemoteConfigService::Worker::take(FetchedConfig fetched) {
    if (!store_.keepFetched(fetched)) {
        return failure(QStringLiteral("the values cannot be kept"));
    }
    fetched_ = std::move(fetched);
    return {RemoteConfigFetchStatus::kSuccess, std::nullopt};
}

void RemoteConfigService::Worker::activate(const ActivationHandler& handler) {
    const std::shared_ptr<const ConfigValues> current = active();
    if (!fetched_ || fetched_->values == *current) {
        handler(false, std::nullopt);
        return;
    }
    auto values = std::make_shared<const ConfigValues>(fetched_->values);
    // The file first: what is read now is read after the next launch too.
    if (!store_.keepActive(*values)) {
        handler(false, RemoteConfigError{QStringLiteral("the values cannot be kept")});
        return;
    }
    {
        const std::lock_guard lock(activeMutex_);
        active_.swap(values);
    }
    handler(true, std::nullopt);
}

}  // namespace pellumar
