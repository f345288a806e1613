#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <variant>
#include <vector>

#include "platform/remoteconfig/ConfigStore.h"
#include "platform/remoteconfig/HttpExchange.h"
#include "platform/remoteconfig/RemoteConfigService.h"

namespace pellumar {

// What the service's thread does: the queue of tasks, the decisions and the active set.
class RemoteConfigService::Worker {
  public:
    struct Fetch {
        std::chrono::seconds maximumAge;
        FetchHandler handler;
    };
    struct Activation {
        ActivationHandler handler;
    };
    using Task = std::variant<Fetch, Activation>;

    Worker(const Options& options, Console& console);

    // From any thread.
    void add(Task task);
    [[nodiscard]] std::shared_ptr<const ConfigValues> active() const;

    // Takes tasks until `stop` is requested, then cancels those that are left.
    void run(const std::stop_token& stop);

  private:
    struct Outcome {
        RemoteConfigFetchStatus status;
        std::optional<RemoteConfigError> error;
    };

    [[nodiscard]] static Outcome failure(const QString& description);
    static void cancel(const Task& task);

    // Nothing when `stop` is requested.
    [[nodiscard]] std::optional<Task> next(const std::stop_token& stop);
    // The fetches in the queue that are content with values of this age.
    [[nodiscard]] std::vector<Fetch> takeFetches(std::chrono::seconds maximumAge);
    void fetchForAll(const Fetch& first, const std::stop_token& stop);
    [[nodiscard]] Outcome fetch(std::chrono::seconds maximumAge, const std::stop_token& stop);
    [[nodiscard]] HttpResponse ask(const QUrl& url, const std::stop_token& stop);
    [[nodiscard]] Outcome judge(const HttpResponse& response);
    [[nodiscard]] Outcome refuse(const HttpResponse& response);
    [[nodiscard]] Outcome take(FetchedConfig fetched);
    [[nodiscard]] bool isFromHere(const QString& address) const;
    [[nodiscard]] bool isHeldOff(qint64 now) const;
    void activate(const ActivationHandler& handler);

    const Options options_;
    const ConfigStore store_;

    // Of the thread alone.
    std::optional<FetchedConfig> fetched_;
    std::optional<Hold> hold_;
    QString installationIdentifier_;

    std::mutex tasksMutex_;
    std::condition_variable_any taskAdded_;
    std::deque<Task> tasks_;
    bool stopped_ = false;

    mutable std::mutex activeMutex_;
    std::shared_ptr<const ConfigValues> active_;
};

}  // namespace pellumar
