#include "platform/remoteconfig/RemoteConfigService.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "ServiceTest.h"
#include "platform/remoteconfig/LocalInstallations.h"
#include "support/FileContents.h"

namespace pellumar {
namespace {

using Status = RemoteConfigFetchStatus;
using test::activateAndWait;
using test::fetchAndWait;
using test::HttpAnswer;
using test::LoopbackServer;

constexpr std::chrono::seconds kAlways{0};
constexpr std::chrono::seconds kHour{3600};

class RemoteConfigServiceTest : public test::ServiceTest {
  protected:
    void waitForRequests(std::size_t count) const {
        const auto deadline = std::chrono::steady_clock::now() + test::kDeadline;
        while (server_.requestCount() < count && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::yield();
        }
        ASSERT_GE(server_.requestCount(), count);
    }
};

TEST_F(RemoteConfigServiceTest, DefaultsFetchedAndActiveAreKeptApart) {
    {
        const auto config = service();
        EXPECT_FALSE(activateAndWait(*config));
        EXPECT_EQ(fetchAndWait(*config, kHour).status, Status::kSuccess);
        EXPECT_EQ(read(*config), "");
        EXPECT_TRUE(config->keysWithPrefix("").isEmpty());
    }
    {
        const auto config = service();
        EXPECT_EQ(read(*config), "");
        EXPECT_TRUE(activateAndWait(*config));
        EXPECT_FALSE(activateAndWait(*config));
        setAnswer(LoopbackServer::answer(
            200,
            R"({"flags":[{"key":"a1","value":1},{"key":"a2","value":2},{"key":"b","value":3}]})"));
        EXPECT_EQ(fetchAndWait(*config, kAlways).status, Status::kSuccess);
        EXPECT_EQ(read(*config), "one");
    }
    const auto config = service();
    EXPECT_EQ(read(*config), "one");
    EXPECT_TRUE(activateAndWait(*config));
    EXPECT_EQ(read(*config), "");
    EXPECT_EQ(config->keysWithPrefix("a"), (QSet<QString>{"a1", "a2"}));
    EXPECT_EQ(server_.requestCount(), 2U);
}

TEST_F(RemoteConfigServiceTest, WhatCannotBeKeptIsNotActivated) {
    const auto config = service();
    EXPECT_EQ(fetchAndWait(*config, kHour).status, Status::kSuccess);
    std::filesystem::remove_all(folder_ / "config");
    test::writeFile(folder_ / "config", "in the way");
    std::promise<std::string> error;
    config->activateWithCompletion(
        [&](bool /*changed*/, const std::optional<RemoteConfigError>& given) {
            error.set_value(given ? given->localizedDescription.toStdString() : "");
        });
    EXPECT_EQ(error.get_future().get(), "the values cannot be kept");
    EXPECT_EQ(read(*config), "");
    EXPECT_EQ(fetchAndWait(*config, kAlways).error, "the values cannot be kept");
}

TEST_F(RemoteConfigServiceTest, FetchesAtTheSameTimeShareOneRequest) {
    std::promise<void> mayAnswer;
    LoopbackServer slow([answer = mayAnswer.get_future().share()](const test::HttpRequest&) {
        answer.wait();
        return LoopbackServer::answer(500, "");
    });
    RemoteConfigService::Options slowOptions = options();
    slowOptions.endpoint.address = slow.address();
    RemoteConfigService config(slowOptions, console_);
    config.start();
    std::atomic<int> ends = 0;
    std::promise<void> last;
    const auto count = [&](Status, const std::optional<RemoteConfigError>& error) {
        EXPECT_TRUE(error);
        if (++ends == 4) {
            last.set_value();
        }
    };
    config.fetchWithExpirationDuration(kHour, count);
    const auto deadline = std::chrono::steady_clock::now() + test::kDeadline;
    while (slow.requestCount() == 0 && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::yield();
    }
    for (int i = 0; i < 3; ++i) {
        config.fetchWithExpirationDuration(kHour, count);
    }
    mayAnswer.set_value();
    last.get_future().wait();
    config.stop();
    EXPECT_EQ(ends, 4);
    EXPECT_EQ(slow.requestCount(), 1U);
}

TEST_F(RemoteConfigServiceTest, GoingAwayCancelsWhatRunsAndWhatWaits) {
    setAnswer({.bytes = "", .then = HttpAnswer::Then::kKeepSilent});
    auto config = service();
    std::vector<std::string> ends;
    config->fetchWithExpirationDuration(
        kHour, [&](Status, const std::optional<RemoteConfigError>& error) {
            ends.push_back("fetch " + error.value().localizedDescription.toStdString());
        });
    config->activateWithCompletion([&](bool, const std::optional<RemoteConfigError>& error) {
        ends.push_back("activation " + error.value().localizedDescription.toStdString());
    });
    waitForRequests(1);
    const auto start = std::chrono::steady_clock::now();
    config->stop();
    EXPECT_LT(std::chrono::steady_clock::now() - start, test::kDeadline / 2);
    EXPECT_EQ(ends, (std::vector<std::string>{"fetch cancelled", "activation cancelled"}));
    EXPECT_EQ(fetchAndWait(*config, kHour).error, "cancelled");
    config.reset();
    EXPECT_EQ(ends.size(), 2U);
}

// The last owner may be a handler: the thread would wait for itself.
TEST_F(RemoteConfigServiceTest, MayGoAwayInAHandler) {
    std::shared_ptr<RemoteConfigService> config = service();
    std::promise<void> gone;
    RemoteConfigService& raw = *config;
    raw.fetchWithExpirationDuration(kHour,
                                    [&, owner = std::move(config)](Status, const auto&) mutable {
                                        owner.reset();
                                        gone.set_value();
                                    });
    EXPECT_EQ(gone.get_future().wait_for(test::kDeadline), std::future_status::ready);
}

TEST_F(RemoteConfigServiceTest, ReadsGoOnDuringFetchesAndActivations) {
    std::atomic<int> version = 0;
    LoopbackServer changing([&](const test::HttpRequest&) {
        return LoopbackServer::answer(200, test::oneFlag(std::to_string(++version)));
    });
    RemoteConfigService::Options changingOptions = options();
    changingOptions.endpoint.address = changing.address();
    RemoteConfigService config(changingOptions, console_);
    config.start();
    std::atomic<bool> done = false;
    std::vector<std::thread> readers(2);
    for (std::thread& reader : readers) {
        reader = std::thread([&] {
            int latest = 0;
            while (!done) {
                const std::string text = read(config);
                const int now = text.empty() ? 0 : std::stoi(text);
                EXPECT_GE(now, latest);
                EXPECT_LE(config.keysWithPrefix("k").size(), 1);
                latest = now;
            }
        });
    }
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(fetchAndWait(config, kAlways).status, Status::kSuccess);
        EXPECT_TRUE(activateAndWait(config));
    }
    done = true;
    for (std::thread& reader : readers) {
        reader.join();
    }
    EXPECT_EQ(read(config), "20");
}

TEST_F(RemoteConfigServiceTest, DamagedFilesAreAsIfAbsent) {
    ASSERT_EQ(fetchAndWait(*service(), kHour).status, Status::kSuccess);
    ASSERT_TRUE(activateAndWait(*service()));
    const std::filesystem::path file = folder_ / "config/active";
    const std::string whole = test::readText(file);
    std::vector<std::string> damaged = {"", "\n", "{}", std::string(20 << 20, '\n')};
    for (std::size_t at = 0; at < whole.size(); at += 7) {
        damaged.push_back(whole.substr(0, at));
        damaged.push_back(whole);
        damaged.back()[at] = static_cast<char>(damaged.back()[at] ^ 1);
    }
    for (const std::string& bytes : damaged) {
        test::writeFile(file, bytes);
        const qsizetype lines = console_.lines().size();
        const auto config = service();
        EXPECT_EQ(read(*config), "") << bytes.substr(0, 200);
        EXPECT_EQ(console_.lines().value(lines).toStdString(),
                  "Damaged, taken for absent: " + file.string());
    }
    for (const char* name : {"fetched", "hold", "installation"}) {
        test::writeFile(folder_ / "config" / name, "{");
    }
    test::writeFile(folder_ / "config/active.aBcDeF", "half written");
    const auto config = service();
    EXPECT_EQ(fetchAndWait(*config, kHour).status, Status::kSuccess);
    EXPECT_TRUE(activateAndWait(*config));
    EXPECT_EQ(read(*service()), "one");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "config/active.aBcDeF"));
}

TEST(RemoteConfigEndpoint, TheEnvironmentWinsOverThePreferences) {
    const test::TemporaryFolder folder;
    UserDefaults preferences(QString::fromStdString((folder / "s.conf").native()));
    EXPECT_EQ(RemoteConfigEndpoint::configured(preferences).address, "");
    preferences.setValue("http://localhost:8016", "REMOTE_CONFIG_URL");
    preferences.setValue("secret", "REMOTE_CONFIG_TOKEN");
    EXPECT_EQ(RemoteConfigEndpoint::configured(preferences).address, "http://localhost:8016");
    EXPECT_EQ(RemoteConfigEndpoint::configured(preferences).bearerToken, "secret");
    qputenv("PELLUMAR_REMOTE_CONFIG_URL", "https://flags.example.org");
    qputenv("PELLUMAR_REMOTE_CONFIG_TOKEN", "");
    qputenv("PELLUMAR_REMOTE_CONFIG_API_KEY", "key");
    const auto endpoint = RemoteConfigEndpoint::configured(preferences);
    qunsetenv("PELLUMAR_REMOTE_CONFIG_URL");
    qunsetenv("PELLUMAR_REMOTE_CONFIG_TOKEN");
    qunsetenv("PELLUMAR_REMOTE_CONFIG_API_KEY");
    EXPECT_EQ(endpoint.address, "https://flags.example.org");
    EXPECT_EQ(endpoint.bearerToken, "");
    EXPECT_EQ(endpoint.apiKey, "key");
}

TEST(LocalInstallations, TheTokenStaysUntilItIsRefreshed) {
    LocalInstallations installations;
    std::vector<QString> tokens;
    for (const bool refresh : {false, false, true}) {
        installations.authTokenForcingRefresh(
            refresh, [&](const auto& token, const auto&) { tokens.push_back(token.value()); });
    }
    EXPECT_EQ(tokens[0], tokens[1]);
    EXPECT_NE(tokens[0], tokens[2]);
}

}  // namespace
}  // namespace pellumar
