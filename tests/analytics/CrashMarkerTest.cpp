#include <signal.h>
#include <sys/mman.h>
#include <sys/resource.h>

#include <QCoreApplication>
#include <QRegularExpression>
#include <array>
#include <cstdlib>
#include <string_view>

#include "EngineTest.h"
#include "platform/crashes/CrashReport.h"
#include "support/FileContents.h"
#include "support/Process.h"

namespace pellumar::test {
namespace {

// Calls itself until there is no stack left, which the compiler is not to see.
int overflow(int depth);
int (*volatile const again)(int) = overflow;

int overflow(int depth) {
    std::array<volatile char, 1024> room{};
    room[static_cast<std::size_t>(depth) % room.size()] = 1;
    return again(depth + 1) + room[0];
}

// What this program does as a child: it catches crashes, and has one.
int crash(const char* folder, std::string_view how) {
    const rlimit noCore{.rlim_cur = 0, .rlim_max = 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    AnalyticsEnvironment environment;
    environment.folder = folder;
    environment.versions = {
        .serviceName = "child", .serviceVersion = "0.9", .osType = {}, .osVersion = {}};
    environment.consent = ConsentStatus::kGranted;
    environment.catchesCrashes = true;
    RunningEngine engine(std::move(environment));
    log(engine, "before");
    if (how == "fault") {
        // A page that nobody may touch: a null pointer would be found out before it faults.
        *static_cast<volatile char*>(
            ::mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) = 1;
    }
    if (how == "overflow") {
        return overflow(0);
    }
    std::abort();
}

class CrashMarkerTest : public EngineTest {
  protected:
    [[nodiscard]] int crash(const char* how) const {
        // Sanitizers have handlers of their own, which end the process in another way.
        const std::string options =
            "handle_segv=0:handle_abort=0:handle_sigbus=0:use_sigaltstack=0";
        return runProcess({"env",
                           "ASAN_OPTIONS=" + options,
                           "TSAN_OPTIONS=" + options,
                           std::filesystem::read_symlink("/proc/self/exe"),
                           "--crash",
                           folder.string(),
                           how})
            .exitCode;
    }
    void leaveMarker(const std::string& content) const {
        std::filesystem::create_directories(folder);
        writeFile(MeasurementFolder::crashIn(folder), content);
    }
    // What the next start makes of it.
    void startOnce() const {
        RunningEngine engine(environment());
        EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        EXPECT_FALSE(std::filesystem::exists(MeasurementFolder::crashIn(folder)));
    }
    [[nodiscard]] std::vector<QJsonObject> crashes() const {
        std::vector<QJsonObject> crashes = rows("events");
        std::erase_if(crashes, [](const QJsonObject& row) { return row["name"] != "pz_crash"; });
        return crashes;
    }
};

TEST_F(CrashMarkerTest, TheNextStartTellsTheCrashOnce) {
    const std::map<const char*, std::pair<int, const char*>> cases{
        {"fault", {SIGSEGV, "SIGSEGV"}},
        {"abort", {SIGABRT, "SIGABRT"}},
        {"overflow", {SIGSEGV, "SIGSEGV"}},
    };
    for (const auto& [how, expected] : cases) {
        SCOPED_TRACE(how);
        folder = parent / how;
        EXPECT_EQ(crash(how), 128 + expected.first);
        const std::string marker = readText(MeasurementFolder::crashIn(folder));
        startOnce();
        // It could not be removed.
        leaveMarker(marker);
        startOnce();
        ASSERT_EQ(crashes().size(), 1U);
        const QJsonObject event = crashes()[0];
        EXPECT_EQ(parameter(event, "pz_signal"), expected.second);
        EXPECT_EQ(parameter(event, "pz_crashed_version"), "0.9");
        EXPECT_EQ(event["session"], rows("events")[0]["session"]);
        const QString stack = parameter(event, "pz_stack");
        // Of this program, where the crash happened or was asked for.
        EXPECT_TRUE(stack.contains("analytics_test+0x")) << stack.toStdString();
        // Offsets in modules, and nothing else.
        static const QRegularExpression places("^([^/\n]+\\+0x[0-9a-f]+\n?)+$");
        EXPECT_TRUE(places.match(stack).hasMatch()) << stack.toStdString();
    }
}

TEST_F(CrashMarkerTest, WithoutConsentThereIsNoMarkerAndOneFromBeforeTheAnswerIsNotTold) {
    for (const ConsentStatus status : {ConsentStatus::kGranted, ConsentStatus::kDenied}) {
        RunningEngine engine(environment());
        engine.setConsent(ConsentKind::kAnalyticsStorage, status);
    }
    EXPECT_EQ(crash("abort"), 128 + SIGABRT);
    EXPECT_FALSE(std::filesystem::exists(MeasurementFolder::crashIn(folder)));
    {
        RunningEngine engine(environment());
        engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kGranted);
    }
    advance(kMinute);
    for (const qint64 before : {60, -60}) {
        leaveMarker("signal SIGBUS\ntime " + std::to_string(kNoon / 1000 - before));
        startOnce();
        EXPECT_EQ(crashes().size(), before > 0 ? 0U : 1U);
    }
}

// What a process may have left on its stack, or somebody else in the file, does not leave.
TEST_F(CrashMarkerTest, OfAMarkerOnlyWhatMakesSenseIsRead) {
    leaveMarker(
        "signal secret\nversion 1.0\nat 1010\nat 7777\nat 2010\nframe secret+0x1\n"
        "1000-2000 r-xp 00000100 08:01 1 /usr/lib/lib one.so\n"
        "2000-3000 rw-p 00000000 08:01 1 /usr/lib/secret\n"
        "7000-8000 r-xp 00000000 00:00 0 \n");
    const auto report = CrashReport::read(MeasurementFolder::crashIn(folder));
    ASSERT_TRUE(report);
    EXPECT_EQ(report->stack, "lib one.so+0x110");
    EXPECT_EQ(report->signal, QString());
    for (const char* time : {"17054", "99999999999", "9223372036854775807", "-5", "soon"}) {
        leaveMarker(std::string("signal SIGBUS\ntime ") + time);
        startOnce();
    }
    EXPECT_EQ(crashes().size(), 5U);
    for (const QJsonObject& each : crashes()) {
        EXPECT_EQ(each["time"], kNoon);
    }
}

}  // namespace
}  // namespace pellumar::test

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc == 4 && std::string_view(argv[1]) == "--crash") {
        return pellumar::test::crash(argv[2], argv[3]);
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
