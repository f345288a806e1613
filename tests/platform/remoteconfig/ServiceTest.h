#pragma once

#include <gtest/gtest.h>

#include <QDateTime>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "platform/remoteconfig/RemoteConfigService.h"
#include "support/RecordingConsole.h"
#include "support/TemporaryFolder.h"
#include "support/network/LoopbackServer.h"

namespace pellumar::test {

inline constexpr std::chrono::seconds kDeadline{60};

struct FetchEnd {
    RemoteConfigFetchStatus status = RemoteConfigFetchStatus::kNoFetchYet;
    std::string error;
};

inline FetchEnd fetchAndWait(FIRRemoteConfig& service, std::chrono::seconds maximumAge) {
    std::promise<FetchEnd> promise;
    service.fetchWithExpirationDuration(
        maximumAge,
        [&](RemoteConfigFetchStatus status, const std::optional<RemoteConfigError>& error) {
            promise.set_value({status, error ? error->localizedDescription.toStdString() : ""});
        });
    return promise.get_future().get();
}

// Whether the active set has changed.
inline bool activateAndWait(FIRRemoteConfig& service) {
    std::promise<bool> promise;
    service.activateWithCompletion(
        [&](bool changed, const std::optional<RemoteConfigError>& error) {
            EXPECT_FALSE(error);
            promise.set_value(changed);
        });
    return promise.get_future().get();
}

// A body with one flag, "key".
inline std::string oneFlag(const std::string& value) {
    return R"({"flags":[{"key":"key","value":")" + value + R"("}]})";
}

// A server whose answer and a clock whose time the test sets, and services between them.
class ServiceTest : public testing::Test {
  protected:
    void setAnswer(HttpAnswer answer) {
        const std::lock_guard lock(mutex_);
        answer_ = std::move(answer);
    }
    [[nodiscard]] RemoteConfigService::Options options() {
        return {.folder = folder_ / "config",
                .endpoint = {.address = server_.address(), .bearerToken = {}, .apiKey = {}},
                .timeout = std::chrono::milliseconds(kDeadline),
                .now = [this] { return now_.load(); }};
    }
    [[nodiscard]] std::unique_ptr<RemoteConfigService> service() {
        auto service = std::make_unique<RemoteConfigService>(options(), console_);
        service->start();
        return service;
    }
    [[nodiscard]] static std::string read(const FIRRemoteConfig& service) {
        return service.objectForKeyedSubscript("key").stringValue->toStdString();
    }
    void advance(std::chrono::milliseconds time) { now_ += time.count(); }

    TemporaryFolder folder_;
    RecordingConsole console_;
    std::atomic<qint64> now_ = QDateTime::currentMSecsSinceEpoch();
    std::mutex mutex_;
    HttpAnswer answer_ = LoopbackServer::answer(200, oneFlag("one"), "ETag: \"v1\"\r\n");
    LoopbackServer server_{[this](const HttpRequest&) {
        const std::lock_guard lock(mutex_);
        return answer_;
    }};
};

}  // namespace pellumar::test
