#include <array>
#include <mutex>

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
        AnalyticsEngine engine(
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
    const std::unique_ptr<AnalyticsStore> store = AnalyticsStore::open(folder);
    EXPECT_EQ(store->counts().total("left_out"), 1);
    EXPECT_EQ(store->counts().total("half"), 1000);
    EXPECT_EQ(store->counts().total("blocked"), 0);
    EXPECT_EQ(store->losses().all()["sampled_out"], 2 + 1000 - halves);
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
        AnalyticsEngine engine(quiet());
        logAndSettle(engine, "old");
        clock->advance(20 * kDay);
        logAndSettle(engine, "young");
        clock->advance(10 * kDay + 1);
        // What comes before it is still there for it to look back at.
        logAndSettle(engine, "new");
    }
    EXPECT_EQ(ownNames(folder), (QStringList{"young", "new"}));
    EXPECT_EQ(AnalyticsStore::open(folder)->losses().all()["expired"], 1);
}

TEST_F(MeasurementTest, AClockThatIsSetExpiresNothing) {
    const auto start = [this](const QString& name) {
        AnalyticsEngine engine(quiet());
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
        AnalyticsEngine engine(with);
        log(engine, "zip", 2);
        EXPECT_EQ(take(), QStringList{"+new_here"});
        engine.setUserPropertyString("de", "language");
        clock->advance(kDay);
        log(engine, "zip");
        EXPECT_EQ(take(), (QStringList{"+busy", "+German_busy"}));
    }
    {
        AnalyticsEngine engine(with);
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
        AnalyticsEngine engine(with);
        log(engine, "other");
    }
    const std::unique_ptr<AnalyticsStore> store = AnalyticsStore::open(folder);
    EXPECT_EQ(store->userProperties().value("pz_in_everybody"), "1");
    EXPECT_EQ(store->userProperties().all().size(), 1U);
    EXPECT_FALSE(store->userProperties().all()[0].advertising);
    // Of those who are in it already too.
    with.audiences[0].forAdvertising = true;
    {
        AnalyticsEngine engine(with);
        log(engine, "other");
    }
    EXPECT_TRUE(store->userProperties().all()[0].advertising);
}

TEST_F(MeasurementTest, PropertiesKeepTheTimeOfTheirValueAndAreNoMoreThan25) {
    AnalyticsEngine engine(quiet());
    engine.setUserPropertyString("a", "p0");
    clock->advance(1000);
    engine.setUserPropertyString("a", "p0");
    for (int i = 1; i < 30; ++i) {
        engine.setUserPropertyString("b", QStringLiteral("p%1").arg(i));
    }
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    engine.stop();
    const std::unique_ptr<AnalyticsStore> store = AnalyticsStore::open(folder);
    const std::vector<UserProperty> properties = store->userProperties().all();
    ASSERT_EQ(properties.size(), 25U);
    EXPECT_EQ(properties[0].name, "p0");
    EXPECT_EQ(properties[0].time, kNoon);
    EXPECT_EQ(properties[1].time, kNoon + 1000);
    EXPECT_EQ(store->losses().all()["invalid"], 5);
}

TEST_F(MeasurementTest, AFullQueueDropsEventsButNoAnswersOfTheUser) {
    EventQueue queue;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < EventQueue::kCapacity + 10; ++i) {
        kept +=
            queue.add({.moment = {}, .what = LoggedEvent{.name = "e", .parameters = {}}}) ? 1 : 0;
    }
    EXPECT_EQ(kept, EventQueue::kCapacity);
    // However often they are given; a no erases, though it is taken back, and a fence waits for all
    // that stands before it.
    constexpr std::size_t kFences = EventQueue::kCapacity / 4;
    const std::array answers{ConsentStatus::kGranted, ConsentStatus::kDenied};
    for (std::size_t i = 0; i < 3 * EventQueue::kCapacity; ++i) {
        EXPECT_TRUE(queue.add({.moment = {}, .what = ConsentChange{.status = answers.at(i % 2)}}));
        EXPECT_TRUE(queue.add({.moment = {}, .what = ActivityChange{.active = i % 2 == 0}}));
        EXPECT_TRUE(queue.add({.moment = {}, .what = InstallationReset{}}));
        EXPECT_EQ(queue.add({.moment = {}, .what = Fence{}}), i < kFences);
    }
    std::vector<QueueItem> items;
    queue.take(items);
    EXPECT_EQ(items.size(), 2 * EventQueue::kCapacity + 5);
    std::vector<ConsentStatus> given;
    for (const QueueItem& item : items) {
        if (const auto* const change = std::get_if<ConsentChange>(&item.what)) {
            given.push_back(change->status);
        }
    }
    ASSERT_EQ(given.size(), kFences + 2);
    for (std::size_t i = 0; i < given.size(); ++i) {
        EXPECT_EQ(given[i], answers.at(i % 2));
    }
    EXPECT_EQ(queue.takeDropped(), 10);
    EXPECT_EQ(queue.takeDropped(), 0);
}

TEST_F(MeasurementTest, ManyThreadsAtOnce) {
    constexpr int kThreads = 4;
    constexpr int kEvents = 100;
    AnalyticsEngine engine(quiet());
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
