#include "EngineTest.h"

namespace pellumar::test {
namespace {

class SessionTest : public EngineTest {
  protected:
    static void log(AnalyticsEngine& engine) {
        engine.logEventWithName("tapped", {});
        ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    }
    [[nodiscard]] qsizetype sessions() const {
        return namesOf(storedEvents(folder)).count("pz_session_start");
    }
    [[nodiscard]] QList<qint64> engagements() const {
        QList<qint64> engagements;
        for (const StoredEvent& event : storedEvents(folder)) {
            if (event.name == "pz_engagement") {
                engagements.append(parameterOf(event, "pz_engagement_ms").toLongLong());
            }
        }
        return engagements;
    }
};

TEST_F(SessionTest, HalfAnHourOfAbsenceEndsASession) {
    {
        RunningEngine engine(environment());
        log(engine);
        clock->advance(30 * kMinute - 1);
        log(engine);
        clock->advance(30 * kMinute);
        log(engine);
    }
    const std::vector<StoredEvent> events = storedEvents(folder);
    EXPECT_EQ(namesOf(events),
              (QStringList{"pz_session_start",
                           "pz_first_open",
                           "tapped",
                           "tapped",
                           "pz_session_start",
                           "tapped"}));
    EXPECT_EQ(events[0].session, events[3].session);
    EXPECT_NE(events[3].session, events[5].session);
    EXPECT_EQ(parameterOf(events[4], "pz_session_number"), "2");
}

TEST_F(SessionTest, WhoLooksAtTheApplicationIsNotAbsent) {
    {
        RunningEngine engine(environment());
        engine.setActive(true);
        ASSERT_TRUE(engine.waitUntilStored(kDeadline));
        clock->advance(40 * kMinute);
        engine.setActive(true);
        // Whatever is done to the clock that people read.
        clock->setAhead(3 * kDay);
        clock->advance(40 * kMinute);
        log(engine);
        clock->setAhead(-7 * kDay);
        engine.setActive(false);
        log(engine);
    }
    EXPECT_EQ(sessions(), 1);
    EXPECT_EQ(engagements(), QList<qint64>{80 * kMinute});
}

TEST_F(SessionTest, NobodyLooksAtAMachineThatSleeps) {
    {
        RunningEngine engine(environment());
        engine.setActive(true);
        ASSERT_TRUE(engine.waitUntilStored(kDeadline));
        clock->advance(10 * kMinute);
        clock->sleep(29 * kMinute);
        log(engine);
        clock->sleep(30 * kMinute);
        log(engine);
        clock->advance(5 * kMinute);
    }
    EXPECT_EQ(sessions(), 2);
    EXPECT_EQ(engagements(), (QList<qint64>{10 * kMinute, 5 * kMinute}));
}

TEST_F(SessionTest, TheEndOfTheProcessTellsTheEngagement) {
    {
        RunningEngine engine(environment());
        engine.setActive(true);
        ASSERT_TRUE(engine.waitUntilStored(kDeadline));
        clock->advance(kMinute);
    }
    EXPECT_EQ(engagements(), QList<qint64>{kMinute});
}

TEST_F(SessionTest, BetweenProcessesTheWallClockDecides) {
    const std::map<qint64, bool> beginsAnother{
        {29 * kMinute, false},
        {30 * kMinute, true},
        {-29 * kMinute, false},
        // So far back that nobody knows how long it was.
        {-2 * kDay, true},
    };
    for (const auto& [change, begins] : beginsAnother) {
        folder = parent / std::to_string(change);
        {
            RunningEngine engine(environment());
            log(engine);
        }
        clock->setAhead(change);
        {
            RunningEngine engine(environment());
            log(engine);
        }
        EXPECT_EQ(sessions(), begins ? 2 : 1) << change;
    }
}

TEST_F(SessionTest, UpdatesAreToldOnceAndTheFirstOpenOnlyOnce) {
    AnalyticsEnvironment newer = environment();
    newer.versions.serviceVersion = "1.1";
    newer.versions.osVersion = "Debian 13";
    for (const AnalyticsEnvironment& each : {environment(), environment(), newer, newer}) {
        RunningEngine engine(each);
        ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    }
    const std::vector<StoredEvent> events = storedEvents(folder);
    ASSERT_EQ(
        namesOf(events),
        (QStringList{"pz_session_start", "pz_first_open", "pz_app_update", "pz_system_update"}));
    EXPECT_EQ(parameterOf(events[2], "pz_previous_version"), "1.0");
    EXPECT_EQ(parameterOf(events[3], "pz_previous_version"), "Debian 12");
}

TEST_F(SessionTest, DaysAreThoseOfLocalTime) {
    const auto dayAhead = [](qint64 hours) {
        struct Ahead : ManualClock {
            qint64 offset = 0;
            [[nodiscard]] qint64 utcOffset(qint64 /*wall*/) const override { return offset; }
        };
        auto ahead = std::make_shared<Ahead>();
        ahead->offset = hours * 60 * kMinute;
        return ahead;
    };
    for (const int hours : {0, 2, -10}) {
        folder = parent / std::to_string(hours);
        const auto local = dayAhead(hours);
        clock = local;
        // To a millisecond before midnight.
        clock->advance(kDay / 2 - local->offset - 1);
        const qint64 today = clock->dayOf(clock->now().wall);
        RunningEngine engine(environment());
        log(engine);
        clock->advance(1);
        log(engine);
        log(engine);
        engine.stop();
        const std::unique_ptr<AnalyticsStore> store = openStore(folder);
        EXPECT_EQ(store->times("tapped", today + 1), 2);
        EXPECT_EQ(store->times("tapped", today), 3);
        EXPECT_EQ(store->times("tapped", std::nullopt), 3);
    }
}

}  // namespace
}  // namespace pellumar::test
