#pragma once

#include <QDateTime>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <stop_token>
#include <thread>

#include "platform/Console.h"
#include "platform/FIRRemoteConfig.h"
#include "platform/remoteconfig/RemoteConfigEndpoint.h"

namespace pellumar {

// Remote configuration from any server of the OpenFeature Remote Evaluation Protocol.
//
// What was fetched and what is active are kept apart on disk, so that both outlive the process; the
// active set is read from memory. Fetches and activations run one after the other on a thread of
// this, which calls their handlers; a fetch that is asked for while another runs shares its end.
// Callers need no event loop, but a QCoreApplication must exist.
//
// How a fetch ends:
// - success: new values, the server's word that nothing has changed (304), or values young enough;
// - throttled, without an error: 429, or 401 or 403 with a Retry-After. No request goes out before
//   that moment, by this process or the next, for a day at the longest;
// - failure, with an error: everything else. Without an address it comes at once.
class RemoteConfigService : public FIRRemoteConfig {
  public:
    // For everything from the look-up of the host to the last byte.
    static constexpr std::chrono::milliseconds kTimeout{10'000};

    struct Options {
        // For this service alone.
        std::filesystem::path folder;
        RemoteConfigEndpoint endpoint;
        std::chrono::milliseconds timeout = kTimeout;
        // The wall clock in milliseconds since 1970. It may be set back and forth.
        std::function<qint64()> now = QDateTime::currentMSecsSinceEpoch;
    };

    // Reads what is active; fetches and activations wait for the start. `console`, on which damaged
    // files are said, must outlive this.
    RemoteConfigService(const Options& options, Console& console);
    // Stops. May run in one of the handlers.
    ~RemoteConfigService() override;
    RemoteConfigService(const RemoteConfigService&) = delete;
    RemoteConfigService& operator=(const RemoteConfigService&) = delete;

    // Starts the thread; once. Of the thread that stops this.
    void start();

    void fetchWithExpirationDuration(std::chrono::seconds duration, FetchHandler handler) override;
    void activateWithCompletion(ActivationHandler completion) override;
    [[nodiscard]] RemoteConfigValue objectForKeyedSubscript(const QString& key) const override;
    [[nodiscard]] QSet<QString> keysWithPrefix(const QString& prefix) const override;

    // Cuts off a running request and ends the thread; returns when it has ended, unless called from
    // a handler. What has not ended yet, and what is asked for later, ends with the error
    // "cancelled"; reads go on. To be called before the QCoreApplication goes.
    void stop();

  private:
    class Worker;

    // The thread's too: it may see the end of this from within a handler.
    std::shared_ptr<Worker> worker_;
    std::stop_source stop_;
    std::thread thread_;
};

}  // namespace pellumar
