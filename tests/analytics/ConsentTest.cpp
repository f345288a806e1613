#include "analytics/Consent.h"

#include <unistd.h>

#include <array>

#include "EngineTest.h"
#include "support/FileContents.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;
using Kind = ConsentKind;
using Status = ConsentStatus;

class ConsentTest : public EngineTest {
  protected:
    static void log(AnalyticsEngine& engine, const char* name) {
        engine.logEventWithName(name, {});
        static_cast<void>(engine.waitUntilStored(kDeadline));
    }
    // Nobody has said anything.
    [[nodiscard]] AnalyticsEnvironment unset() const {
        AnalyticsEnvironment with = environment();
        with.consent = Status::kUnset;
        return with;
    }
    [[nodiscard]] QString state(const char* key) const {
        for (const QJsonObject& row : storedRows(folder, "state")) {
            if (row["key"].toString() == key) {
                return row["value"].toString();
            }
        }
        return {};
    }
    [[nodiscard]] QString installation() const { return state("installation"); }
    [[nodiscard]] bool isAnythingStored() const {
        return fs::exists(MeasurementFolder::storeIn(folder));
    }
};

TEST_F(ConsentTest, UnsetMeansWhatTheApplicationLogsAndNothingElse) {
    fs::create_directories(folder);
    writeFile(MeasurementFolder::crashIn(folder), "signal SIGBUS\ntime 1705492000\n");
    RunningEngine engine(unset());
    engine.setActive(true);
    engine.setUserPropertyString("|", "participating_tests");
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    clock->advance(10 * kMinute);
    engine.setActive(false);
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    // No identifier before there is an event.
    EXPECT_TRUE(storedEvents(folder).empty());
    EXPECT_EQ(installation(), QString());
    EXPECT_EQ(state("session"), QString());
    log(engine, "tapped");
    engine.stop();
    EXPECT_EQ(namesOf(storedEvents(folder)), QStringList{"tapped"});
    EXPECT_EQ(installation().size(), 36);
    EXPECT_FALSE(fs::exists(MeasurementFolder::crashIn(folder)));
}

TEST_F(ConsentTest, WhatTheEngineHasMadeByItselfGoesWhenItIsNotGrantedAnyMore) {
    {
        RunningEngine engine(environment());
        engine.setActive(true);
        log(engine, "tapped");
        clock->advance(kMinute);
    }
    EXPECT_EQ(namesOf(storedEvents(folder)),
              (QStringList{"pz_session_start", "pz_first_open", "tapped", "pz_engagement"}));
    RunningEngine engine(unset());
    log(engine, "later");
    EXPECT_EQ(namesOf(storedEvents(folder)), (QStringList{"tapped", "later"}));
    // Granted in the middle, they come from here on.
    engine.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
    engine.setActive(true);
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    clock->advance(kMinute);
    engine.setActive(false);
    log(engine, "last");
    engine.stop();
    EXPECT_EQ(namesOf(storedEvents(folder)),
              (QStringList{"tapped", "later", "pz_engagement", "last"}));
}

TEST_F(ConsentTest, DenialErasesAndNothingIsStoredUntilItIsTakenBack) {
    {
        RunningEngine engine(environment());
        log(engine, "before");
    }
    const QString first = installation();
    {
        RunningEngine engine(environment());
        engine.setConsent(Kind::kAnalyticsStorage, Status::kDenied);
        engine.setUserPropertyString("value", "property");
        log(engine, "without");
        EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
        EXPECT_FALSE(isAnythingStored());
    }
    {
        // It outlives the process.
        RunningEngine engine(environment());
        log(engine, "without");
        EXPECT_FALSE(isAnythingStored());
        engine.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
        log(engine, "after");
    }
    EXPECT_EQ(namesOf(storedEvents(folder)), (QStringList{"pz_session_start", "after"}));
    EXPECT_NE(installation(), first);
    EXPECT_TRUE(openStore(folder)->properties().empty());
}

TEST_F(ConsentTest, TakesEffectWithTheNextEvent) {
    AnalyticsEngine engine(quiet());
    for (const char* name : {"one", "two", "three"}) {
        engine.setConsent(Kind::kAnalyticsStorage, Status::kDenied);
        engine.logEventWithName("forbidden", {});
        engine.setConsent(Kind::kAnalyticsStorage, Status::kUnset);
        engine.logEventWithName(name, {});
    }
    engine.start();
    engine.stop();
    EXPECT_EQ(ownNames(folder), QStringList{"three"});
}

// What is said before it is known what was answered in earlier processes waits for it.
TEST_F(ConsentTest, AnEarlierDenialHoldsForWhatIsSaidBeforeTheStart) {
    {
        RunningEngine engine(environment());
        engine.setConsent(Kind::kAnalyticsStorage, Status::kDenied);
    }
    AnalyticsEngine engine(quiet());
    EXPECT_EQ(engine.consent(), std::nullopt);
    engine.logEventWithName("forbidden", {});
    clock->advance(kMinute);
    engine.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
    engine.logEventWithName("granted", {});
    engine.start();
    EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
    const Consent consent = engine.consent().value();
    EXPECT_EQ(consent.answer(Kind::kAnalyticsStorage).status, Status::kGranted);
    EXPECT_EQ(consent.answer(Kind::kAnalyticsStorage).time, kNoon + kMinute);
    EXPECT_EQ(consent.answer(Kind::kAdStorage), Consent::Answer());
    engine.stop();
    EXPECT_EQ(ownNames(folder), QStringList{"granted"});
}

TEST_F(ConsentTest, ADeployersWordStandsUntilSomebodyAnswers) {
    EXPECT_EQ(consentStatusOf(""), Status::kUnset);
    EXPECT_EQ(consentStatusOf("granted"), Status::kGranted);
    EXPECT_EQ(consentStatusOf("Granted, please"), Status::kDenied);
    AnalyticsEnvironment denied = quiet();
    denied.consent = Status::kDenied;
    {
        RunningEngine engine(quiet());
        log(engine, "before");
    }
    RunningEngine engine(denied);
    log(engine, "without");
    EXPECT_FALSE(isAnythingStored());
    engine.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
    log(engine, "answered");
    engine.stop();
    EXPECT_EQ(ownNames(folder), QStringList{"answered"});
}

TEST_F(ConsentTest, APauseKeepsWhatThereIsAndCollectsAndSendsNothing) {
    const Collector collector;
    {
        RunningEngine engine(quiet());
        log(engine, "before");
        engine.setCollecting(false);
        log(engine, "meanwhile");
        EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
    }
    RunningEngine engine(sending(collector.address(), quiet()));
    log(engine, "meanwhile");
    EXPECT_TRUE(engine.consent()->isPaused);
    EXPECT_EQ(ownNames(folder), QStringList{"before"});
    EXPECT_EQ(collector.names(), QStringList());
    engine.setCollecting(true);
    engine.logEventWithName("after", {});
    EXPECT_TRUE(becomesTrue([&] { return collector.names() == QStringList{"before", "after"}; }));
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
        engine.start();
        ASSERT_TRUE(collector.waitForBatches(before + 1));
        engine.stop();
        const bool kept = storage != Status::kDenied && personalization != Status::kDenied;
        EXPECT_EQ(openStore(folder)->properties().size(), kept ? 2U : 1U);
        const Attributes resource = collector.batches().back().resource;
        EXPECT_EQ(resource.contains("pz.user_property.pz_in_ads"),
                  kept && userData != Status::kDenied);
        EXPECT_TRUE(resource.contains("pz.user_property.pz_in_all"));
    }
}

TEST_F(ConsentTest, AnAnswerThatMakesNoSenseIsANo) {
    for (const char* content : {"", "{", "{}", R"({"analytics_storage":{"status":"perhaps"}})"}) {
        fs::create_directories(folder);
        writeFile(MeasurementFolder::consentIn(folder), content);
        RunningEngine engine(environment());
        log(engine, "tapped");
        EXPECT_FALSE(isAnythingStored()) << content;
    }
}

TEST_F(ConsentTest, WhileTheAnswersCannotBeReadNothingIsKeptAndNothingErased) {
    const fs::path file = MeasurementFolder::consentIn(folder);
    const fs::path aside = parent / "aside";
    for (const Status answered : {Status::kGranted, Status::kDenied}) {
        {
            RunningEngine engine(quiet());
            log(engine, "before");
            engine.setConsent(
                answered == Status::kDenied ? Kind::kAnalyticsStorage : Kind::kAdStorage, answered);
            EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
        }
        fs::rename(file, aside);
        // No file that can be opened, which is known from a missing one.
        fs::create_symlink(file, file);
        RunningEngine engine(quiet());
        log(engine, "meanwhile");
        EXPECT_FALSE(engine.waitUntilObeyed(kDeadline));
        EXPECT_EQ(engine.consent(), std::nullopt);
        EXPECT_EQ(ownNames(folder).size(), answered == Status::kDenied ? 0 : 1);
        fs::rename(aside, file);
        EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
        EXPECT_EQ(
            ownNames(folder),
            answered == Status::kDenied ? QStringList() : (QStringList{"before", "meanwhile"}));
        // The other answers stand.
        EXPECT_EQ(engine.consent()->answer(Kind::kAdStorage).status, Status::kGranted);
    }
}

TEST_F(ConsentTest, AProcessThatFindsTheFolderHeldMeasuresNothing) {
    RunningEngine one(quiet());
    log(one, "one");
    RunningEngine other(quiet());
    log(other, "other");
    EXPECT_FALSE(other.waitUntilStored(kDeadline));
    EXPECT_EQ(other.consent(), std::nullopt);
    EXPECT_EQ(ownNames(folder), QStringList{"one"});
    // The one that takes its place does, as after an application that is just ending.
    one.stop();
    EXPECT_TRUE(other.waitUntilStored(kDeadline));
    other.stop();
    EXPECT_EQ(ownNames(folder), (QStringList{"one", "other"}));
}

// Permissions mean nothing to the superuser.
class AsNobody {
  public:
    explicit AsNobody(const fs::path& home) : before_(::geteuid()) {
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

TEST_F(ConsentTest, WhatCannotBeRemovedIsWipedAndTheFolderIsTheUsersAlone) {
    const AsNobody nobody(parent.path());
    EXPECT_TRUE(openStore(folder));
    fs::permissions(MeasurementFolder::storeIn(folder), fs::perms::all);
    fs::permissions(folder, fs::perms::all);
    RunningEngine engine(quiet());
    engine.setConsent(Kind::kAdStorage, Status::kDenied);
    log(engine, "before");
    EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
    for (const auto& file : fs::directory_iterator(folder)) {
        EXPECT_EQ(file.status().permissions(), fs::perms::owner_read | fs::perms::owner_write)
            << file.path();
    }
    const QString first = installation();
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    engine.resetInstallation();
    log(engine, "after");
    EXPECT_FALSE(engine.consent()->isErasureOwed);
    engine.stop();
    EXPECT_NE(installation(), first);
    EXPECT_EQ(ownNames(folder), QStringList{"after"});
    for (const auto& file : fs::directory_iterator(folder)) {
        EXPECT_EQ(readText(file).find("before"), std::string::npos) << file.path();
    }
}

TEST_F(ConsentTest, WhatCannotBeErasedIsOwedUntilItIsOverRestartsToo) {
    const fs::path obstacle = MeasurementFolder::storeIn(folder);
    const fs::path aside = parent / "aside";
    {
        RunningEngine engine(quiet());
        log(engine, "before");
    }
    const QString first = installation();
    fs::rename(folder, aside);
    fs::create_directories(obstacle / "inside");
    {
        RunningEngine engine(quiet());
        engine.resetInstallation();
        log(engine, "waiting");
        EXPECT_FALSE(engine.waitUntilObeyed(kDeadline));
        EXPECT_TRUE(engine.consent()->isErasureOwed);
    }
    // The disk is well again, with what was to be erased.
    fs::remove_all(obstacle);
    fs::copy(MeasurementFolder::storeIn(aside), obstacle);
    RunningEngine engine(quiet());
    log(engine, "after");
    EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
    EXPECT_FALSE(engine.consent()->isErasureOwed);
    engine.stop();
    EXPECT_NE(installation(), first);
    EXPECT_EQ(ownNames(folder), QStringList{"after"});
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
    AnalyticsEngine* engine = nullptr;
    // When the event is stored and not sent yet.
    with.audienceChanged = [&](const QString& /*audience*/, bool /*member*/) {
        engine->setConsent(Kind::kAnalyticsStorage, Status::kDenied);
    };
    AnalyticsEngine owner(std::move(with));
    engine = &owner;
    owner.start();
    owner.logEventWithName("tapped", {});
    EXPECT_TRUE(becomesTrue([&] {
        const std::optional<Consent> consent = owner.consent();
        return consent && !consent->allowsStorage() && !isAnythingStored();
    }));
    owner.stop();
    EXPECT_EQ(sent, 0);
}

TEST_F(ConsentTest, AResetGivesAnotherIdentifierAndForgetsWhatWasLost) {
    RunningEngine engine(quiet());
    log(engine, "before");
    log(engine, "1 wrong");
    const QString first = installation();
    engine.resetInstallation();
    log(engine, "after");
    EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
    engine.stop();
    EXPECT_NE(installation(), first);
    EXPECT_EQ(ownNames(folder), QStringList{"after"});
    EXPECT_TRUE(openStore(folder)->losses().empty());
}

TEST_F(ConsentTest, AnIdentifierIsRenewedWhenNothingWaitsUnderTheOldOne) {
    Collector collector;
    const auto sendOne = [&](const char* name) {
        const std::size_t before = collector.batches().size();
        RunningEngine engine(sending(collector.address(), quiet()));
        engine.logEventWithName(name, {});
        EXPECT_TRUE(collector.waitForBatches(before + 1));
        EXPECT_TRUE(becomesTrue([&] { return storedEvents(folder).empty(); }));
        return collector.batches().back();
    };
    const CollectedBatch first = sendOne("first");
    clock->advance(90 * kDay - 1);
    EXPECT_EQ(sendOne("second").resource["app.installation.id"],
              first.resource["app.installation.id"]);
    clock->advance(1);
    const CollectedBatch third = sendOne("third");
    EXPECT_NE(third.resource["app.installation.id"], first.resource["app.installation.id"]);
    EXPECT_NE(third.records[0].attributes["session.id"], first.records[0].attributes["session.id"]);
    clock->advance(20 * kDay);
    {
        RunningEngine engine(quiet({{"measurement_identifier_days", "10"}}));
        log(engine, "new");
        EXPECT_NE(installation(), third.resource["app.installation.id"]);
        const QString now = installation();
        clock->advance(10 * kDay);
        log(engine, "later");
        EXPECT_EQ(installation(), now);
    }
}

}  // namespace
}  // namespace pellumar::test
