#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <random>
#include <thread>

#include "CrashingChild.h"
#include "ServiceTest.h"

namespace pellumar::test {

void fetchAndActivateForEver(const char* folder, const char* address) {
    StreamConsole console(stderr);
    RemoteConfigService service(
        {.folder = folder, .endpoint = {.address = address, .bearerToken = {}, .apiKey = {}}},
        console);
    service.start();
    while (true) {
        fetchAndWait(service, std::chrono::seconds(0));
        activateAndWait(service);
    }
}

namespace {

constexpr int kRounds = 25;
constexpr int kFlags = 200;

// All flags of a version hold its number.
std::string version(std::size_t number) {
    std::string body = R"({"flags":[)";
    for (int i = 0; i < kFlags; ++i) {
        body +=
            R"({"key":"flag)" + std::to_string(i) + R"(","value":)" + std::to_string(number) + "},";
    }
    body.back() = ']';
    return body + "}";
}

pid_t startChild(const std::string& folder, const std::string& address) {
    std::string program = "/proc/self/exe";
    std::string argument(kChildArgument);
    std::string folderCopy = folder;
    std::string addressCopy = address;
    char* arguments[] = {
        program.data(), argument.data(), folderCopy.data(), addressCopy.data(), nullptr};
    pid_t id = -1;
    return posix_spawn(&id, program.c_str(), nullptr, nullptr, arguments, environ) == 0 ? id : -1;
}

TEST(RemoteConfigCrash, TheActiveSetIsWholeWheneverTheProcessIsKilled) {
    const TemporaryFolder folder;
    std::atomic<std::size_t> versions = 0;
    const LoopbackServer server(
        [&](const HttpRequest&) { return LoopbackServer::answer(200, version(++versions)); });
    std::mt19937 random(20);
    for (int round = 0; round < kRounds; ++round) {
        const std::size_t killAt = versions + 1 + random() % 4;
        const pid_t child = startChild(folder.path().string(), server.address().toStdString());
        ASSERT_GT(child, 0);
        const auto deadline = std::chrono::steady_clock::now() + kDeadline;
        while (versions < killAt && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::yield();
        }
        const auto moment =
            std::chrono::steady_clock::now() + std::chrono::microseconds(random() % 8000);
        while (std::chrono::steady_clock::now() < moment) {
            std::this_thread::yield();
        }
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_GE(versions, killAt);

        RecordingConsole console;
        const RemoteConfigService service({.folder = folder.path(), .endpoint = {}}, console);
        const QSet<QString> keys = service.keysWithPrefix("");
        QSet<QString> values;
        for (const QString& key : keys) {
            values.insert(service.objectForKeyedSubscript(key).stringValue.value());
        }
        EXPECT_TRUE(keys.isEmpty() || keys.size() == kFlags) << keys.size();
        EXPECT_LE(values.size(), 1);
        EXPECT_TRUE(console.lines().isEmpty()) << console.lines().join('\n').toStdString();
    }
    // Rounds that all ended before the first activation would have proved nothing.
    RecordingConsole console;
    const RemoteConfigService service({.folder = folder.path(), .endpoint = {}}, console);
    EXPECT_EQ(service.keysWithPrefix("").size(), kFlags);
}

}  // namespace
}  // namespace pellumar::test
