#include <unistd.h>

#include <array>
#include <mutex>

#include "EngineTest.h"
#include "analytics/CrashReport.h"
#include "analytics/Erasure.h"
#include "support/FileContents.h"

namespace pellumar::test {
namespace {

using Kind = ConsentKind;
using Status = ConsentStatus;

class ConsentTest : public EngineTest {
  protected:
    static void log(AnalyticsEngine& engine, const char* name) {
        engine.logEventWithName(name, {});
        static_cast<void>(engine.waitUntilStored(kDeadline));
    }
    [[nodiscard]] QString installation() const {
        return AnalyticsStore::open(folder)->installation().current();
    }
    [[nodiscard]] bool isAnythingStored() const {
        return std::filesystem::exists(AnalyticsStore::fileIn(folder));
    }
};

TEST_F(ConsentTest, DenialErasesAndNothingIsStoredUntilItIsTakenBack) {
    {
        AnalyticsEngine engine(environment());
        log(engine, "before");
    }
    const QString first = installation();
    {
        AnalyticsEngine engine(environment());
        engine.setConsent(Kind::kAnalyticsStorage, Status::kDenied);
        engine.setUserPropertyString("value", "property");
        log(engine, "without");
        EXPECT_FALSE(engine.waitUntilStored(kDeadline));
        EXPECT_FALSE(isAnythingStored());
    }
    {
        // It outlives the process.
        AnalyticsEngine engine(environment());
        log(engine, "without");
        EXPECT_FALSE(isAnythingStored());
        engine.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
        log(engine, "after");
    }
    EXPECT_EQ(namesOf(storedEvents(folder)), (QStringList{"pz_session_start", "after"}));
    EXPECT_NE(installation(), first);
    EXPECT_TRUE(AnalyticsStore::open(folder)->userProperties().all().empty());
}

TEST_F(ConsentTest, TakesEffectWithTheNextEvent) {
    AnalyticsEngine engine(quiet());
    for (const char* name : {"one", "two", "three"}) {
        engine.setConsent(Kind::kAnalyticsStorage, Status::kDenied);
        engine.logEventWithName("forbidden", {});
        engine.setConsent(Kind::kAnalyticsStorage, Status::kUnset);
        engine.logEventWithName(name, {});
    }
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    engine.stop();
    EXPECT_EQ(ownNames(folder), QStringList{"three"});
}

TEST_F(ConsentTest, EveryEventSaysWhatConsentItWasRecordedUnder) {
    {
        AnalyticsEngine engine(quiet());
        engine.logEventWithName("unasked", {});
        engine.setConsent(Kind::kAdStorage, Status::kDenied);
        engine.setConsent(Kind::kAdUserData, Status::kGranted);
        engine.logEventWithName("asked", {});
        EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    }
    const std::vector<StoredEvent> events = storedEvents(folder);
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].consent, Consent());
    EXPECT_EQ(events[1].consent.status(Kind::kAdStorage), Status::kDenied);
    EXPECT_EQ(events[1].consent.status(Kind::kAdUserData), Status::kGranted);
    EXPECT_EQ(events[1].consent.status(Kind::kAdPersonalization), Status::kUnset);
    const ConsentState kept(folder);
    EXPECT_EQ(kept.timeOf(Kind::kAdStorage), kNoon);
    EXPECT_EQ(kept.timeOf(Kind::kAdPersonalization), std::nullopt);
}

// An audience for advertising needs two consents to come to be, and a third to leave the machine.
TEST_F(ConsentTest, EveryCombinationAboutAdvertising) {
    Collector collector;
    const std::array statuses{Status::kUnset, Status::kGranted, Status::kDenied};
    for (int combination = 0; combination < 27; ++combination) {
        SCOPED_TRACE(combination);
        folder = parent / std::to_string(combination);
        const Status storage = statuses.at(static_cast<std::size_t>(combination % 3));
        const Status userData = statuses.at(static_cast<std::size_t>(combination / 3 % 3));
        const Status personalization = statuses.at(static_cast<std::size_t>(combination / 9));
        AnalyticsEnvironment with = sending(collector.address(), quiet());
        with.audiences = {{.name = "ads", .conditions = {}, .forAdvertising = true},
                          {.name = "all", .conditions = {}}};
        const std::size_t before = collector.batches().size();
        AnalyticsEngine engine(std::move(with));
        engine.setConsent(Kind::kAdStorage, storage);
        engine.setConsent(Kind::kAdUserData, userData);
        engine.setConsent(Kind::kAdPersonalization, personalization);
        engine.logEventWithName("tapped", {});
        ASSERT_TRUE(collector.waitForBatches(before + 1));
        engine.stop();
        const bool kept = storage != Status::kDenied && personalization != Status::kDenied;
        EXPECT_EQ(AnalyticsStore::open(folder)->userProperties().value("pz_in_ads") == "1", kept);
        const Attributes resource = collector.batches().back().resource;
        EXPECT_EQ(resource.contains("pz.user_property.pz_in_ads"),
                  kept && userData != Status::kDenied);
        EXPECT_TRUE(resource.contains("pz.user_property.pz_in_all"));
    }
}

// Permissions mean nothing to the superuser.
class AsNobody {
  public:
    explicit AsNobody(const std::filesystem::path& home) : before_(::geteuid()) {
        if (before_ == 0) {
            constexpr uid_t kNobody = 65534;
            EXPECT_EQ(::chown(home.c_str(), kNobody, kNobody), 0);
            EXPECT_EQ(::seteuid(kNobody), 0);
        }
    }
    ~AsNobody() { EXPECT_EQ(::seteuid(before_), 0); }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

  private:
    const uid_t before_;
};

TEST_F(ConsentTest, AnAnswerThatMakesNoSenseIsANo) {
    for (const char* content : {"", "{", "{}", R"({"analytics_storage":{"status":"perhaps"}})"}) {
        std::filesystem::create_directories(folder);
        writeFile(folder / "consent.json", content);
        AnalyticsEngine engine(environment());
        log(engine, "tapped");
        EXPECT_FALSE(isAnythingStored()) << content;
    }
}

TEST_F(ConsentTest, WhileTheAnswersCannotBeReadNothingIsKeptAndNothingErased) {
    namespace fs = std::filesystem;
    const fs::path file = folder / "consent.json";
    const fs::path aside = parent / "aside";
    AnalyticsEngine engine(quiet());
    engine.setConsent(Kind::kAdStorage, Status::kGranted);
    log(engine, "before");
    const QString first = installation();
    fs::rename(file, aside);
    // No file that can be opened, which is known from a missing one.
    fs::create_symlink(file, file);
    log(engine, "meanwhile");
    EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    EXPECT_EQ(ownNames(folder), QStringList{"before"});
    {
        const ConsentState unknown(folder);
        EXPECT_FALSE(unknown.isKnown(Kind::kAdStorage));
        EXPECT_FALSE(unknown.current().allowsStorage());
    }
    // What is said by a process that starts then waits too, and its answers do not take the others'
    // place.
    {
        AnalyticsEngine other(quiet());
        other.logEventWithName("lost", {});
        EXPECT_FALSE(other.waitUntilStored(kDeadline));
        other.setConsent(Kind::kAdUserData, Status::kDenied);
        EXPECT_FALSE(other.waitUntilStored(kDeadline));
    }
    fs::rename(aside, file);
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    EXPECT_EQ(ConsentState(folder).current().status(Kind::kAdStorage), Status::kGranted);
    // A denial that can be read again is one.
    ConsentState(folder).set(Kind::kAnalyticsStorage, Status::kDenied, kNoon);
    fs::rename(file, aside);
    fs::create_symlink(file, file);
    AnalyticsEngine third(quiet());
    third.logEventWithName("forbidden", {});
    EXPECT_FALSE(third.waitUntilStored(kDeadline));
    fs::rename(aside, file);
    EXPECT_FALSE(third.waitUntilStored(kDeadline));
    EXPECT_FALSE(isAnythingStored());
}

TEST_F(ConsentTest, AFolderThatCannotBeLookedIntoLosesNothing) {
    namespace fs = std::filesystem;
    const AsNobody nobody(parent.path());
    {
        AnalyticsEngine engine(quiet());
        log(engine, "before");
    }
    fs::permissions(folder, fs::perms::none);
    AnalyticsEngine engine(quiet());
    engine.logEventWithName("meanwhile", {});
    EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    fs::permissions(folder, fs::perms::owner_all);
    log(engine, "after");
    engine.stop();
    EXPECT_EQ(ownNames(folder), (QStringList{"before", "meanwhile", "after"}));
}

TEST_F(ConsentTest, WhatOneProcessIsToldTheOtherObeys) {
    AnalyticsEngine one(quiet());
    log(one, "before");
    {
        AnalyticsEngine other(quiet());
        other.setConsent(Kind::kAnalyticsStorage, Status::kDenied);
        EXPECT_FALSE(other.waitUntilStored(kDeadline));
    }
    log(one, "forbidden");
    EXPECT_FALSE(isAnythingStored());
    {
        AnalyticsEngine other(quiet());
        other.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
        EXPECT_TRUE(other.waitUntilStored(kDeadline));
    }
    log(one, "after");
    // Without another event too.
    ConsentState(folder).set(Kind::kAnalyticsStorage, Status::kDenied, kNoon);
    EXPECT_TRUE(becomesTrue([&] { return !isAnythingStored(); }));
    ConsentState(folder).set(Kind::kAnalyticsStorage, Status::kUnset, kNoon);
    log(one, "later");
    one.stop();
    EXPECT_EQ(ownNames(folder), QStringList{"later"});
}

TEST_F(ConsentTest, WhatWasSaidBeforeADenialThatIsTakenBackUnnoticedIsNotKept) {
    std::mutex gate;
    std::atomic<bool> isHeld = false;
    AnalyticsEnvironment with = quiet();
    const auto blocked = with.parameters;
    with.parameters = [&](const QString& key) {
        std::unique_lock passing(gate, std::try_to_lock);
        if (!passing) {
            isHeld = true;
            passing.lock();
        }
        return blocked(key);
    };
    AnalyticsEngine engine(std::move(with));
    engine.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
    log(engine, "before");
    {
        const std::scoped_lock stopping(gate);
        engine.setActive(true);
        ASSERT_TRUE(becomesTrue([&] { return isHeld.load(); }));
        engine.logEventWithName("forbidden", {});
        clock->advance(1);
        ConsentState(folder).set(Kind::kAnalyticsStorage, Status::kDenied, clock->now().wall);
        clock->advance(1);
        ConsentState(folder).set(Kind::kAnalyticsStorage, Status::kGranted, clock->now().wall);
    }
    EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    log(engine, "after");
    engine.stop();
    EXPECT_EQ(ownNames(folder).last(), "after");
    EXPECT_FALSE(ownNames(folder).contains("forbidden"));
}

TEST_F(ConsentTest, NoAnswerIsLostWhereTwoProcessesAreGivenThem) {
    ConsentState one(folder);
    ConsentState other(folder);
    other.set(Kind::kAnalyticsStorage, Status::kDenied, kNoon);
    one.set(Kind::kAdStorage, Status::kGranted, kNoon + 1);
    EXPECT_EQ(one.current().status(Kind::kAnalyticsStorage), Status::kDenied);
    // A no is written again where another process has answered with yes meanwhile.
    other.set(Kind::kAnalyticsStorage, Status::kGranted, kNoon + 2);
    one.set(Kind::kAnalyticsStorage, Status::kDenied, kNoon + 3);
    EXPECT_EQ(ConsentState(folder).current().status(Kind::kAnalyticsStorage), Status::kDenied);
    EXPECT_EQ(ConsentState(folder).timeOf(Kind::kAnalyticsStorage), kNoon + 3);
    // The same answer again is no other one.
    one.set(Kind::kAdStorage, Status::kGranted, kNoon + 4);
    EXPECT_EQ(ConsentState(folder).timeOf(Kind::kAdStorage), kNoon + 1);
    // One that cannot be written waits, and a no that was given meanwhile counts.
    std::filesystem::remove_all(folder);
    writeFile(folder, "in the way");
    one.set(Kind::kAdUserData, Status::kGranted, kNoon);
    one.set(Kind::kAdPersonalization, Status::kGranted, kNoon);
    EXPECT_TRUE(one.isUnsaved());
    std::filesystem::remove(folder);
    ConsentState(folder).set(Kind::kAdUserData, Status::kDenied, kNoon);
    one.save();
    const Consent kept = ConsentState(folder).current();
    EXPECT_EQ(kept, one.current());
    EXPECT_EQ(kept.status(Kind::kAdUserData), Status::kDenied);
    EXPECT_EQ(kept.status(Kind::kAdPersonalization), Status::kGranted);
}

TEST_F(ConsentTest, WhatCannotBeRemovedIsWipedAndTheFolderIsTheUsersAlone) {
    namespace fs = std::filesystem;
    const AsNobody nobody(parent.path());
    fs::create_directory(folder);
    EXPECT_TRUE(AnalyticsStore::open(folder));
    fs::permissions(AnalyticsStore::fileIn(folder), fs::perms::all);
    fs::permissions(folder, fs::perms::all);
    AnalyticsEngine engine(quiet());
    engine.setConsent(Kind::kAdStorage, Status::kDenied);
    log(engine, "before");
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
    for (const auto& file : fs::directory_iterator(folder)) {
        EXPECT_EQ(file.status().permissions(), fs::perms::owner_read | fs::perms::owner_write)
            << file.path();
    }
    const QString first = installation();
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    engine.resetInstallation();
    log(engine, "after");
    engine.stop();
    EXPECT_NE(installation(), first);
    EXPECT_EQ(ownNames(folder), QStringList{"after"});
    for (const auto& file : fs::directory_iterator(folder)) {
        EXPECT_EQ(readText(file).find("before"), std::string::npos) << file.path();
    }
    // By a start too, which has none open.
    ConsentState(folder).set(Kind::kAnalyticsStorage, Status::kDenied, kNoon);
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    AnalyticsEngine denied(quiet());
    EXPECT_FALSE(denied.waitUntilStored(kDeadline));
    denied.stop();
    EXPECT_TRUE(storedEvents(folder).empty());
}

TEST_F(ConsentTest, AStoreIsNotWipedAsLongAsSomebodyReadsWhatWas) {
    const std::unique_ptr<AnalyticsStore> store = AnalyticsStore::open(folder);
    const std::unique_ptr<AnalyticsStore> reader = AnalyticsStore::open(folder);
    reader->database().run("BEGIN");
    EXPECT_TRUE(reader->database().number("SELECT count(*) FROM state"));
    EXPECT_FALSE(store->wipe());
    EXPECT_EQ(reader->database().commit(), DatabaseOutcome::kDone);
    EXPECT_TRUE(store->wipe());
    std::filesystem::path log = AnalyticsStore::fileIn(folder);
    log += "-wal";
    EXPECT_EQ(std::filesystem::file_size(log), 0U);
}

TEST_F(ConsentTest, WhatCannotBeErasedIsOwedUntilItIsOverRestartsToo) {
    namespace fs = std::filesystem;
    const fs::path obstacle = AnalyticsStore::fileIn(folder);
    const fs::path aside = parent / "aside";
    {
        AnalyticsEngine engine(quiet());
        log(engine, "before");
    }
    const QString first = installation();
    fs::rename(folder, aside);
    fs::create_directories(obstacle / "inside");
    {
        AnalyticsEngine engine(quiet());
        engine.resetInstallation();
        log(engine, "waiting");
    }
    EXPECT_EQ(fs::status(Erasure::noteIn(folder)).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    // The disk is well again, with what was to be erased.
    fs::remove_all(obstacle);
    for (const fs::directory_entry& file : fs::directory_iterator(aside)) {
        fs::rename(file.path(), folder / file.path().filename());
    }
    {
        AnalyticsEngine engine(quiet());
        log(engine, "after");
    }
    EXPECT_NE(installation(), first);
    EXPECT_EQ(ownNames(folder), QStringList{"after"});
    // Under a denial too, which opens nothing that could try it.
    AnalyticsStore::remove(folder);
    fs::create_directories(obstacle / "inside");
    AnalyticsEngine engine(quiet());
    engine.setConsent(Kind::kAnalyticsStorage, Status::kDenied);
    EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    fs::remove(obstacle / "inside");
    EXPECT_TRUE(becomesTrue([&] { return !isAnythingStored(); }));
}

// Keeps what it is to send.
class MuteTransport : public LogTransport {
  public:
    explicit MuteTransport(std::atomic<int>& sent) : sent_(sent) {}
    void send(const QByteArray& /*body*/) override { ++sent_; }
    [[nodiscard]] std::optional<Answer> takeAnswer() override { return std::nullopt; }
    void cancel() override {}
    [[nodiscard]] bool knowsTheWay() const override { return true; }

  private:
    std::atomic<int>& sent_;
};

TEST_F(ConsentTest, ADenialThatComesAtTheLastMomentStopsTheUpload) {
    std::atomic<int> sent = 0;
    AnalyticsEnvironment with = quiet();
    with.transport = [&sent] { return std::make_unique<MuteTransport>(sent); };
    with.audiences = {{.name = "here", .conditions = {{.what = EventHappened{.event = "tapped"}}}}};
    // Another process, when the event is stored and not sent yet.
    with.audienceChanged = [&](const QString& /*audience*/, bool /*member*/) {
        ConsentState(folder).set(Kind::kAnalyticsStorage, Status::kDenied, kNoon);
    };
    AnalyticsEngine engine(std::move(with));
    engine.logEventWithName("tapped", {});
    EXPECT_TRUE(becomesTrue(
        [&] { return !ConsentState(folder).current().allowsStorage() && !isAnythingStored(); }));
    engine.stop();
    EXPECT_EQ(sent, 0);
}

TEST_F(ConsentTest, ACrashFromBeforeTheAnswerIsNotTold) {
    for (const qint64 before : {60, -60}) {
        ConsentState(folder).set(Kind::kAnalyticsStorage, Status::kGranted, kNoon);
        writeFile(CrashReport::markerIn(folder),
                  "signal SIGBUS\ntime " + std::to_string(kNoon / 1000 - before));
        clock->advance(kMinute);
        AnalyticsEngine engine(environment());
        log(engine, "tapped");
        engine.stop();
        EXPECT_EQ(namesOf(storedEvents(folder)).count("pz_crash"), before > 0 ? 0 : 1);
        AnalyticsStore::remove(folder);
    }
    // Nor is one from the time of a denial that was taken back, which leaves no time of an answer.
    AnalyticsEngine engine(environment());
    engine.setConsent(Kind::kAnalyticsStorage, Status::kDenied);
    EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    writeFile(CrashReport::markerIn(folder), "signal SIGBUS\ntime 1705492800");
    engine.setConsent(Kind::kAnalyticsStorage, Status::kUnset);
    log(engine, "tapped");
    engine.stop();
    EXPECT_EQ(namesOf(storedEvents(folder)).count("pz_crash"), 0);
}

TEST_F(ConsentTest, AResetGivesAnotherIdentifierAndErasesWhatWasMeasuredUnderTheOld) {
    AnalyticsEngine one(quiet());
    AnalyticsEngine other(quiet());
    log(one, "before");
    log(other, "before");
    const QString first = installation();
    one.resetInstallation();
    log(one, "after");
    // What the other process has open is gone.
    log(other, "after");
    one.stop();
    other.stop();
    EXPECT_NE(installation(), first);
    EXPECT_EQ(ownNames(folder), (QStringList{"after", "after"}));
}

TEST_F(ConsentTest, WhatWasLostBeforeAnErasureOrDuringADenialIsNotTold) {
    std::mutex gate;
    AnalyticsEnvironment with = quiet();
    with.parameters = [&gate](const QString& /*key*/) {
        const std::scoped_lock passing(gate);
        return QString();
    };
    AnalyticsEngine engine(std::move(with));
    const auto logTooMany = [&engine] {
        for (std::size_t i = 0; i < 3 * EventQueue::kCapacity; ++i) {
            engine.logEventWithName("lost", {});
        }
    };
    log(engine, "before");
    {
        const std::unique_ptr<AnalyticsStore> another = AnalyticsStore::open(folder);
        // So that the loss cannot be written down.
        another->database().begin();
        ASSERT_FALSE(another->database().failed());
        logTooMany();
        engine.resetInstallation();
        static_cast<void>(engine.waitUntilStored(kDeadline));
        log(engine, "after");
    }
    EXPECT_EQ(ownNames(folder), QStringList{"after"});
    EXPECT_EQ(AnalyticsStore::open(folder)->losses().all()["queue_full"], 0);
    engine.setConsent(Kind::kAnalyticsStorage, Status::kDenied);
    EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    {
        const std::scoped_lock stopping(gate);
        logTooMany();
    }
    EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    engine.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
    log(engine, "granted");
    engine.stop();
    EXPECT_EQ(ownNames(folder), QStringList{"granted"});
    EXPECT_EQ(AnalyticsStore::open(folder)->losses().all()["queue_full"], 0);
}

}  // namespace
}  // namespace pellumar::test
