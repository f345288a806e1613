#include "analytics/CrashMarker.h"

#include <signal.h>

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
        return std::filesystem::exists(CrashReport::markerIn(folder));
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
            AnalyticsEngine engine(environment());
            EXPECT_TRUE(engine.waitUntilStored(kDeadline));
            EXPECT_FALSE(isMarked());
        }
        const std::vector<StoredEvent> events = storedEvents(folder);
        ASSERT_EQ(namesOf(events).count("pz_crash"), 1);
        const StoredEvent& event =
            events.at(static_cast<std::size_t>(namesOf(events).indexOf("pz_crash")));
        EXPECT_EQ(parameterOf(event, "pz_signal"), ParameterValue(QString(expected.second)));
        EXPECT_EQ(parameterOf(event, "pz_crashed_version"), ParameterValue(QString("0.9")));
        EXPECT_EQ(event.sessionUid, events[0].sessionUid);
        const QString stack = std::get<QString>(parameterOf(event, "pz_stack"));
        // Of this program, where the crash happened or was asked for.
        EXPECT_TRUE(stack.contains("analytics_test+0x")) << stack.toStdString();
    }
}

TEST_F(CrashMarkerTest, WithoutConsentThereIsNoMarker) {
    {
        AnalyticsEngine engine(environment());
        engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied);
    }
    EXPECT_EQ(crash("abort").exitCode, 128 + SIGABRT);
    EXPECT_FALSE(isMarked());
}

TEST_F(CrashMarkerTest, AMarkerThatIsUnfinishedOrNonsenseTellsWhatThereIs) {
    std::filesystem::create_directories(folder);
    for (const char* time : {"17054", "99999999999", "9223372036854775807", "-5", "soon"}) {
        writeFile(CrashReport::markerIn(folder), std::string("signal SIGBUS\ntime ") + time);
        AnalyticsEngine engine(environment());
        EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        EXPECT_FALSE(isMarked());
    }
    const std::vector<StoredEvent> events = storedEvents(folder);
    EXPECT_EQ(namesOf(events).count("pz_crash"), 5);
    EXPECT_TRUE(std::all_of(
        events.begin(), events.end(), [](const StoredEvent& each) { return each.time == kNoon; }));
}

TEST_F(CrashMarkerTest, ACrashIsToldOnceWheneverTheProcessThatTellsItIsKilled) {
    std::filesystem::create_directories(folder);
    const std::string crash = "signal SIGBUS\ntime 1705492000\nprocess 7\n";
    // Before it could be told; before the marker could be removed, and there was another crash.
    writeFile(CrashReport::claimedIn(folder), crash);
    for (int start = 0; start < 3; ++start) {
        {
            AnalyticsEngine engine(environment());
            EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        }
        EXPECT_EQ(namesOf(storedEvents(folder)).count("pz_crash"), start < 2 ? 1 : 2);
        if (start == 0) {
            writeFile(CrashReport::claimedIn(folder), crash);
            writeFile(CrashReport::markerIn(folder), crash + "again");
        }
    }
    EXPECT_FALSE(isMarked());
}

}  // namespace
}  // namespace pellumar::test
