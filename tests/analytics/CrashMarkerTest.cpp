#include "analytics/CrashMarker.h"

#include <signal.h>

#include <QRegularExpression>
#include <algorithm>
#include <cstdlib>

#include "EngineTest.h"
#include "analytics/CrashReport.h"
#include "support/FileContents.h"
#include "support/Process.h"

namespace pellumar::test {
namespace {

class CrashMarkerTest : public EngineTest {
  protected:
    CrashMarkerTest() {
        // Sanitizers have handlers of their own, which end the process in another way.
        for (const char* name : {"ASAN_OPTIONS", "TSAN_OPTIONS"}) {
            const char* const before = std::getenv(name);
            const std::string options =
                std::string(before != nullptr ? before : "") +
                ":handle_segv=0:handle_abort=0:handle_sigbus=0:use_sigaltstack=0";
            ::setenv(name, options.c_str(), 1);
        }
    }
    [[nodiscard]] ProcessResult crash(const char* how) const {
        return runProcess({"/proc/self/exe", "--crash", folder.string(), how});
    }
    [[nodiscard]] bool isMarked() const {
        return std::filesystem::exists(MeasurementFolder::crashIn(folder));
    }
};

TEST_F(CrashMarkerTest, TheNextStartTellsTheCrash) {
    const std::map<const char*, std::pair<int, const char*>> cases{
        {"fault", {SIGSEGV, "SIGSEGV"}},
        {"abort", {SIGABRT, "SIGABRT"}},
        {"overflow", {SIGSEGV, "SIGSEGV"}},
    };
    for (const auto& [how, expected] : cases) {
        SCOPED_TRACE(how);
        folder = parent / how;
        const ProcessResult result = crash(how);
        EXPECT_EQ(result.exitCode, 128 + expected.first) << result.output;
        EXPECT_TRUE(isMarked());
        for (int start = 0; start < 2; ++start) {
            RunningEngine engine(environment());
            EXPECT_TRUE(engine.waitUntilStored(kDeadline));
            EXPECT_FALSE(isMarked());
        }
        const std::vector<StoredEvent> events = storedEvents(folder);
        ASSERT_EQ(namesOf(events).count("pz_crash"), 1);
        const StoredEvent& event =
            events.at(static_cast<std::size_t>(namesOf(events).indexOf("pz_crash")));
        EXPECT_EQ(parameterOf(event, "pz_signal"), expected.second);
        EXPECT_EQ(parameterOf(event, "pz_crashed_version"), "0.9");
        EXPECT_EQ(event.session, events[0].session);
        const QString stack = parameterOf(event, "pz_stack");
        // Of this program, where the crash happened or was asked for.
        EXPECT_TRUE(stack.contains("analytics_test+0x")) << stack.toStdString();
        // Offsets in modules, and nothing else.
        static const QRegularExpression places("^([^/\n]+\\+0x[0-9a-f]+\n?)+$");
        EXPECT_TRUE(places.match(stack).hasMatch()) << stack.toStdString();
    }
}

TEST_F(CrashMarkerTest, WithoutConsentThereIsNoMarker) {
    {
        RunningEngine engine(environment());
        engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied);
        EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
    }
    EXPECT_EQ(crash("abort").exitCode, 128 + SIGABRT);
    EXPECT_FALSE(isMarked());
}

TEST_F(CrashMarkerTest, AMarkerThatIsUnfinishedOrNonsenseTellsWhatThereIs) {
    std::filesystem::create_directories(folder);
    for (const char* time : {"17054", "99999999999", "9223372036854775807", "-5", "soon"}) {
        writeFile(MeasurementFolder::crashIn(folder), std::string("signal SIGBUS\ntime ") + time);
        RunningEngine engine(environment());
        EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        EXPECT_FALSE(isMarked());
    }
    const std::vector<StoredEvent> events = storedEvents(folder);
    EXPECT_EQ(namesOf(events).count("pz_crash"), 5);
    EXPECT_TRUE(std::all_of(
        events.begin(), events.end(), [](const StoredEvent& each) { return each.time == kNoon; }));
}

TEST_F(CrashMarkerTest, ACrashIsToldOnceThoughItsMarkerCouldNotBeRemoved) {
    std::filesystem::create_directories(folder);
    const std::string crash = "signal SIGBUS\ntime 1705492000\nprocess 7\n";
    for (const std::string& marker : {crash, crash, crash + "again"}) {
        writeFile(MeasurementFolder::crashIn(folder), marker);
        RunningEngine engine(environment());
        EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        EXPECT_FALSE(isMarked());
    }
    EXPECT_EQ(namesOf(storedEvents(folder)).count("pz_crash"), 2);
}

// What a process may have left on its stack, or somebody else in the file, does not leave.
TEST_F(CrashMarkerTest, OnlyOffsetsAreReadFromAMarker) {
    writeFile(parent / "marker",
              "signal secret\nversion 1.0\nat 1010\nat 7777\nat 2010\nframe secret+0x1\n"
              "1000-2000 r-xp 00000100 08:01 1 /usr/lib/lib one.so\n"
              "2000-3000 rw-p 00000000 08:01 1 /usr/lib/secret\n"
              "7000-8000 r-xp 00000000 00:00 0 \n");
    const std::optional<CrashReport> report = CrashReport::read(parent / "marker");
    ASSERT_TRUE(report);
    EXPECT_EQ(report->stack, "lib one.so+0x110");
    EXPECT_EQ(report->signal, QString());
}

TEST_F(CrashMarkerTest, OneFromBeforeTheAnswerIsNotTold) {
    AnalyticsEngine(environment()).stop();
    for (const qint64 before : {60, -60}) {
        folder = parent / std::to_string(before);
        {
            RunningEngine engine(environment());
            engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kGranted);
            EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
        }
        writeFile(MeasurementFolder::crashIn(folder),
                  "signal SIGBUS\ntime " + std::to_string(kNoon / 1000 - before));
        clock->advance(kMinute);
        RunningEngine engine(environment());
        EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        engine.stop();
        EXPECT_EQ(namesOf(storedEvents(folder)).count("pz_crash"), before > 0 ? 0 : 1);
        clock->advance(-kMinute);
    }
}

}  // namespace
}  // namespace pellumar::test
