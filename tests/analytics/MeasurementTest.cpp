#include <thread>

#include "EngineTest.h"

namespace pellumar::test {
namespace {

// What is measured: by remote configuration, and into audiences.
class MeasurementTest : public EngineTest {
  protected:
    static void log(AnalyticsEngine& engine, const QString& name, int times = 1) {
        for (int i = 0; i < times; ++i) {
            engine.logEventWithName(name, {});
        }
        ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    }
    // The second answer comes when the upkeep behind the first one is done.
    static void logAndSettle(AnalyticsEngine& engine, const QString& name) {
        log(engine, name);
        ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    }
};

TEST_F(MeasurementTest, WhatIsSampledOutCountsAndWhatIsBlockedDoesNot) {
    {
        RunningEngine engine(
            configured({{"measurement_sampling", "0"},
                        {"measurement_event_sampling", "kept = 1000, half=500 ,,=,odd=x"},
                        {"measurement_blocked_events", "blocked, pz_first_open"}}));
        for (const char* name : {"left_out", "kept", "blocked", "odd"}) {
            log(engine, name);
        }
        log(engine, "half", 1000);
    }
    QStringList names = namesOf(storedEvents(folder));
    const qsizetype halves = names.removeAll("half");
    EXPECT_TRUE(halves > 350 && halves < 650) << halves;
    EXPECT_EQ(names, (QStringList{"pz_session_start", "kept"}));
    const std::unique_ptr<AnalyticsStore> store = openStore(folder);
    EXPECT_EQ(store->times("left_out", std::nullopt), 1);
    EXPECT_EQ(store->times("half", std::nullopt), 1000);
    EXPECT_EQ(store->times("blocked", std::nullopt), 0);
    EXPECT_EQ(store->losses()["sampled_out"], 2 + 1000 - halves);
}

TEST_F(MeasurementTest, ParametersOutOfRangeAreAtItsEndAndNonsenseIsIgnored) {
    const auto read = [](const char* key, const char* value) {
        return MeasurementConfig::read([=](const QString& asked) {
            return asked == QLatin1String(key) ? QString(value) : QString();
        });
    };
    EXPECT_EQ(read("measurement_batch_events", "0").batchEvents, 1);
    EXPECT_EQ(read("measurement_batch_events", "99999").batchEvents, 1000);
    EXPECT_EQ(read("measurement_batch_events", "many").batchEvents, 100);
    EXPECT_EQ(read("measurement_interval_seconds", "1").interval, std::chrono::seconds(60));
    EXPECT_EQ(read("measurement_retention_days", "9").retention, std::chrono::days(9));
    EXPECT_EQ(read("measurement_sampling", "-1").samplingOf("tapped"), 0);
    EXPECT_EQ(read("measurement_sampling", "0").samplingOf("pz_crash"), 1000);
}

TEST_F(MeasurementTest, WhatIsTooOldIsForgotten) {
    {
        RunningEngine engine(quiet());
        logAndSettle(engine, "old");
        clock->advance(20 * kDay);
        logAndSettle(engine, "young");
        clock->advance(10 * kDay + 1);
        // What comes before it is still there for it to look back at.
        logAndSettle(engine, "new");
    }
    EXPECT_EQ(ownNames(folder), (QStringList{"young", "new"}));
    EXPECT_EQ(openStore(folder)->losses()["expired"], 1);
}

TEST_F(MeasurementTest, AClockThatIsSetExpiresNothing) {
    const auto start = [this](const QString& name) {
        RunningEngine engine(quiet());
        logAndSettle(engine, name);
    };
    start("first");
    for (const qint64 years : {14, -14, -30, 30}) {
        clock->setAhead(years * 365 * kDay);
        start("start");
        clock->advance(kDay / 2);
        start("start");
    }
    EXPECT_EQ(ownNames(folder).count("first"), 1);
    // With a clock that goes on as clocks do, it is too old one day.
    for (int i = 0; i < 2; ++i) {
        clock->advance(20 * kDay);
        start("later");
    }
    EXPECT_EQ(ownNames(folder).count("first"), 0);
}

TEST_F(MeasurementTest, AudiencesFollowEventsPropertiesAndDays) {
    QStringList changes;
    AnalyticsEnvironment with = quiet();
    with.audiences = {
        {.name = "busy",
         .conditions = {{.what = EventHappened{.event = "zip", .atLeast = 3, .lastDays = 2}}}},
        {.name = "new_here",
         .conditions = {{.what = EventHappened{.event = "zip", .atLeast = 4}, .negated = true}}},
        {.name = "German_busy",
         .conditions = {{.what = PropertyIs{.name = "language", .value = "de"}},
                        {.what = PropertyIs{.name = "pz_in_busy", .value = "1"}}}},
    };
    with.audienceChanged = [&](const QString& audience, bool member) {
        changes.append((member ? "+" : "-") + audience);
    };
    const auto take = [&] { return std::exchange(changes, {}); };
    {
        RunningEngine engine(with);
        log(engine, "zip", 2);
        EXPECT_EQ(take(), QStringList{"+new_here"});
        engine.setUserPropertyString("de", "language");
        clock->advance(kDay);
        log(engine, "zip");
        EXPECT_EQ(take(), (QStringList{"+busy", "+German_busy"}));
    }
    {
        RunningEngine engine(with);
        log(engine, "other");
        EXPECT_EQ(take(), QStringList());
        clock->advance(kDay);
        log(engine, "other");
        EXPECT_EQ(take(), (QStringList{"-busy", "-German_busy"}));
        log(engine, "zip");
        EXPECT_EQ(take(), QStringList{"-new_here"});
        engine.setUserPropertyString("", "language");
    }
    with.audiences = {{.name = "everybody", .conditions = {}}};
    {
        RunningEngine engine(with);
        log(engine, "other");
    }
    const std::unique_ptr<AnalyticsStore> store = openStore(folder);
    ASSERT_EQ(store->properties().size(), 1U);
    EXPECT_EQ(store->properties()[0].name, "pz_in_everybody");
    EXPECT_FALSE(store->properties()[0].advertising);
    // Of those who are in it already too.
    with.audiences[0].forAdvertising = true;
    {
        RunningEngine engine(with);
        log(engine, "other");
    }
    EXPECT_TRUE(store->properties()[0].advertising);
}

TEST_F(MeasurementTest, PropertiesAreNoMoreThan25) {
    RunningEngine engine(quiet());
    for (int i = 0; i < 30; ++i) {
        engine.setUserPropertyString("b", QStringLiteral("p%1").arg(i));
    }
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    engine.stop();
    const std::unique_ptr<AnalyticsStore> store = openStore(folder);
    const std::vector<UserProperty> properties = store->properties();
    ASSERT_EQ(properties.size(), 25U);
    EXPECT_EQ(store->losses()["invalid"], 5);
}

TEST_F(MeasurementTest, WhatWaitsIsBoundedAndAnAnswerIsNeverDropped) {
    Intake intake{Consent()};
    intake.learn(Consent());
    const auto add = [&intake](auto what) { intake.add({.moment = {}, .what = std::move(what)}); };
    for (std::size_t i = 0; i < Intake::kCapacity + 10; ++i) {
        add(Event{.name = "e", .parameters = {}});
    }
    for (int i = 0; i < 1000; ++i) {
        add(ActivityChange{.inFront = i % 2 == 0});
    }
    Intake::Work work = intake.take();
    EXPECT_EQ(work.items.size(), Intake::kCapacity + 1);
    EXPECT_FALSE(std::get<ActivityChange>(work.items.back().what).inFront);
    EXPECT_EQ(work.dropped, 10);
    // With large ones there is room for less, also when what came first comes back.
    for (int i = 0; i < 1000; ++i) {
        add(Event{.name = QString(5000, 'e'), .parameters = {}});
    }
    intake.putBack(std::move(work));
    work = intake.take();
    EXPECT_LE(work.items.size(), Intake::kCapacity);
    EXPECT_GT(work.dropped, 900);
    // A no empties it at once, and what was taken before does not come back.
    add(Event{.name = "e", .parameters = {}});
    intake.answer(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied, kNoon);
    intake.answer(ConsentKind::kAnalyticsStorage, ConsentStatus::kGranted, kNoon);
    add(Event{.name = "later", .parameters = {}});
    intake.putBack(std::move(work));
    work = intake.take();
    EXPECT_TRUE(work.items.empty());
    intake.erased(work.erasures);
    work = intake.take();
    ASSERT_EQ(work.items.size(), 1U);
    EXPECT_EQ(std::get<Event>(work.items[0].what).name, "later");
    EXPECT_EQ(work.dropped, 0);
}

TEST_F(MeasurementTest, ManyThreadsAtOnce) {
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
    engine.stop();
    EXPECT_EQ(ownNames(folder).size(), kThreads * kEvents);
}

}  // namespace
}  // namespace pellumar::test
