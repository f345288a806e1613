#include <thread>

#include "EngineTest.h"

namespace pellumar::test {
namespace {

// What is recorded: sessions, counts, samples, audiences.
class RecorderTest : public EngineTest {
  protected:
    [[nodiscard]] QList<qint64> engagements() const {
        QList<qint64> engagements;
        for (const QJsonObject& event : rows("events")) {
            if (event["name"] == "pz_engagement") {
                engagements.append(parameter(event, "pz_engagement_ms").toLongLong());
            }
        }
        return engagements;
    }
};

TEST_F(RecorderTest, HalfAnHourOfAbsenceEndsASession) {
    {
        RunningEngine engine(environment());
        log(engine, "tapped");
        advance(30 * kMinute - 1);
        log(engine, "tapped");
        advance(30 * kMinute);
        log(engine, "tapped");
    }
    const std::vector<QJsonObject> events = rows("events");
    EXPECT_EQ(names().join(' '),
              "pz_session_start pz_first_open tapped tapped pz_session_start tapped");
    EXPECT_EQ(events[0]["session"], events[3]["session"]);
    EXPECT_NE(events[3]["session"], events[5]["session"]);
    EXPECT_EQ(parameter(events[4], "pz_session_number"), "2");
}

TEST_F(RecorderTest, WhoLooksIsNotAbsentButNobodyLooksAtAMachineThatSleeps) {
    {
        RunningEngine engine(environment());
        engine.setActive(true);
        EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        advance(40 * kMinute);
        engine.setActive(true);
        // Whatever is done to the clock that people read.
        wall += 3 * kDay;
        advance(40 * kMinute);
        log(engine, "tapped");
        wall -= 7 * kDay;
        EXPECT_EQ(names().count("pz_session_start"), 1);
        sleep(29 * kMinute);
        log(engine, "tapped");
        EXPECT_EQ(names().count("pz_session_start"), 1);
        sleep(30 * kMinute);
        log(engine, "tapped");
        // The end of the process tells it.
        advance(5 * kMinute);
    }
    EXPECT_EQ(names().count("pz_session_start"), 2);
    EXPECT_EQ(engagements(), (QList<qint64>{80 * kMinute, 5 * kMinute}));
}

// Neither does the new store know of it by itself, nor who was told of nothing meanwhile.
TEST_F(RecorderTest, WhoIsInFrontIsKnownAfterAResetAndAfterAPause) {
    RunningEngine engine(environment());
    engine.setActive(true);
    log(engine, "before");
    engine.resetInstallation();
    log(engine, "after");
    advance(kMinute);
    engine.setCollecting(false);
    EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
    engine.setActive(false);
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    engine.setCollecting(true);
    log(engine, "resumed");
    // Nobody has been looking.
    advance(kMinute);
    log(engine, "later");
    engine.setActive(true);
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    advance(2 * kMinute);
    engine.setActive(false);
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    EXPECT_EQ(engagements(), QList<qint64>{2 * kMinute});
}

TEST_F(RecorderTest, BetweenProcessesTheWallClockDecides) {
    const std::map<qint64, int> sessions{
        {29 * kMinute, 1},
        {30 * kMinute, 2},
        {-29 * kMinute, 1},
        // So far back that nobody knows how long it was.
        {-2 * kDay, 2},
    };
    for (const auto& [change, expected] : sessions) {
        folder = parent / std::to_string(change);
        RunningEngine(environment()).stop();
        wall += change;
        RunningEngine engine(environment());
        log(engine, "tapped");
        EXPECT_EQ(names().count("pz_session_start"), expected) << change;
    }
}

TEST_F(RecorderTest, UpdatesAreToldOnceAndTheFirstOpenOnlyOnce) {
    AnalyticsEnvironment newer = environment();
    newer.versions.serviceVersion = "1.1";
    newer.versions.osVersion = "Debian 13";
    for (const AnalyticsEnvironment& each : {environment(), environment(), newer, newer}) {
        RunningEngine engine(each);
    }
    const std::vector<QJsonObject> events = rows("events");
    ASSERT_EQ(names().join(' '), "pz_session_start pz_first_open pz_app_update pz_system_update");
    EXPECT_EQ(parameter(events[2], "pz_previous_version"), "1.0");
    EXPECT_EQ(parameter(events[3], "pz_previous_version"), "Debian 12");
}

TEST_F(RecorderTest, DaysAreThoseOfLocalTime) {
    const QByteArray zone = qgetenv("TZ");
    for (const int hours : {0, 2, -10}) {
        // POSIX counts westwards.
        qputenv("TZ", "ABC" + QByteArray::number(-hours));
        ::tzset();
        folder = parent / std::to_string(hours);
        // To a millisecond before midnight.
        wall = kNoon + kDay / 2 - hours * (60 * kMinute) - 1;
        const qint64 today = kNoon / kDay;
        RunningEngine engine(environment());
        log(engine, "tapped");
        advance(1);
        log(engine, "tapped", 2);
        EXPECT_EQ(count("tapped", today), 1) << hours;
        EXPECT_EQ(count("tapped", today + 1), 2) << hours;
        EXPECT_EQ(count("tapped"), 3);
    }
    zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
    ::tzset();
}

TEST_F(RecorderTest, WhatIsSampledOutCountsAndWhatIsBlockedDoesNot) {
    RunningEngine engine(
        quiet({{"measurement_sampling", "-7"},
               {"measurement_event_sampling", "kept = 99999, half=500 ,,=,odd=x"}}));
    for (const char* name : {"left_out", "kept", "blocked", "odd"}) {
        log(engine, name);
    }
    log(engine, "half", 1000);
    QStringList kept = names();
    const qsizetype halves = kept.removeAll("half");
    EXPECT_TRUE(halves > 350 && halves < 650) << halves;
    EXPECT_EQ(kept, QStringList{"kept"});
    EXPECT_EQ(count("left_out"), 1);
    EXPECT_EQ(count("half"), 1000);
    EXPECT_EQ(count("blocked"), 0);
    EXPECT_EQ(lost("sampled_out"), 2 + 1000 - halves);
}

TEST_F(RecorderTest, WhatIsTooOldIsForgotten) {
    RunningEngine engine(quiet());
    for (const char* name : {"first", "second", "third"}) {
        log(engine, name);
        advance(20 * kDay);
    }
    log(engine, "last");
    EXPECT_EQ(ownNames().join(' '), "third last");
    EXPECT_EQ(lost("expired"), 2);
    EXPECT_EQ(count("first", kNoon / kDay), 0);
    EXPECT_EQ(count("second", kNoon / kDay + 20), 1);
    EXPECT_EQ(count("first"), 1);
}

TEST_F(RecorderTest, AudiencesFollowEventsAndDays) {
    AnalyticsEnvironment with = quiet();
    with.audiences = {
        {.name = "busy", .conditions = {{.event = "zip", .atLeast = 3, .lastDays = 2}}},
        {.name = "old", .conditions = {{.event = "zip", .atLeast = 4}}}};
    const auto members = [this] { return state("audiences").toObject().keys(); };
    {
        RunningEngine engine(with);
        log(engine, "zip", 2);
        advance(kDay);
        EXPECT_EQ(members(), QStringList());
        log(engine, "zip");
        EXPECT_EQ(members(), QStringList{"busy"});
        advance(kDay);
        log(engine, "zip");
        EXPECT_EQ(members(), QStringList{"old"});
    }
    with.audiences = {{.name = "everybody", .conditions = {}}};
    RunningEngine engine(with);
    log(engine, "other");
    EXPECT_EQ(members(), QStringList{"everybody"});
}

TEST_F(RecorderTest, PropertiesAndNamesAreBounded) {
    RunningEngine engine(quiet());
    for (int i = 0; i < 30; ++i) {
        engine.setUserPropertyString("b", QStringLiteral("p%1").arg(i));
    }
    for (int i = 0; i < 510; ++i) {
        engine.logEventWithName(QStringLiteral("name%1").arg(i), {});
    }
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    EXPECT_EQ(state("user_properties").toObject().size(), 25);
    EXPECT_EQ(names().size(), 500);
    EXPECT_EQ(lost("invalid"), 5 + 10);
}

TEST_F(RecorderTest, ManyThreadsAtOnce) {
    constexpr int kThreads = 4;
    constexpr int kEvents = 100;
    RunningEngine engine(quiet());
    {
        std::vector<std::jthread> threads;
        threads.reserve(kThreads);
        for (int i = 0; i < kThreads; ++i) {
            threads.emplace_back([&] {
                for (int event = 0; event < kEvents; ++event) {
                    engine.logEventWithName("tapped", QVariantMap{{"n", event}});
                    engine.setUserPropertyString(QString::number(event), "last");
                }
            });
        }
    }
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    EXPECT_EQ(ownNames().size(), kThreads * kEvents);
}

}  // namespace
}  // namespace pellumar::test
