#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

#include "ServiceTest.h"

namespace pellumar {
namespace {

// The stand-in for a server that the documentation shows, on a free port.
class ExampleServer {
  public:
    ExampleServer() {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        std::string words[] = {
            "python3", EXAMPLE_FOLDER "/serve.py", EXAMPLE_FOLDER "/flags.json", "0"};
        char* arguments[] = {
            words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
        EXPECT_EQ(posix_spawnp(&id_, arguments[0], &actions, nullptr, arguments, environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        ::close(ends[1]);
        char letter = 0;
        while (::read(ends[0], &letter, 1) == 1 && letter != '\n') {
            address_ += QLatin1Char(letter);
        }
        ::close(ends[0]);
    }
    ~ExampleServer() {
        ::kill(id_, SIGTERM);
        ::waitpid(id_, nullptr, 0);
    }
    ExampleServer(const ExampleServer&) = delete;
    ExampleServer& operator=(const ExampleServer&) = delete;

    [[nodiscard]] const QString& address() const { return address_; }

  private:
    pid_t id_ = -1;
    QString address_;
};

TEST(Example, ServesAParameterOfEachTypeAndAnExperiment) {
    const ExampleServer server;
    const test::TemporaryFolder folder;
    test::RecordingConsole console;
    RemoteConfigService service(
        {.folder = folder.path(),
         .endpoint = {.address = server.address(), .bearerToken = {}, .apiKey = {}}},
        console);
    service.start();
    // The second time the server has nothing new.
    for (int i = 0; i < 2; ++i) {
        const test::FetchEnd end = test::fetchAndWait(service, std::chrono::seconds(0));
        ASSERT_EQ(end.status, RemoteConfigFetchStatus::kSuccess) << end.error;
        EXPECT_EQ(test::activateAndWait(service), i == 0);
    }
    const std::pair<const char*, const char*> texts[] = {
        {"greeting", "Hi"},
        {"big_buttons", "true"},
        {"most_recent_archives", "50"},
        {"animation_seconds", "0.25"},
        {"theme", R"({"accent":"orange","radius":12})"},
        {"withdrawn", ""},
    };
    for (const auto& [key, text] : texts) {
        EXPECT_EQ(service.objectForKeyedSubscript(key).stringValue, QString(text)) << key;
    }
    const QString arm = service.objectForKeyedSubscript("onboarding_test").stringValue.value();
    EXPECT_TRUE(arm == "variant_a" || arm == "variant_b") << arm.toStdString();
}

}  // namespace
}  // namespace pellumar
