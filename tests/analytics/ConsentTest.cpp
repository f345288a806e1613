#include "analytics/Consent.h"

#include <array>

#include "EngineTest.h"
#include "support/FileContents.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;
using Kind = ConsentKind;
using Status = ConsentStatus;

class ConsentTest : public EngineTest {};

TEST_F(ConsentTest, UnsetMeansWhatTheApplicationLogsAndNothingElse) {
    fs::create_directories(folder);
    writeFile(MeasurementFolder::crashIn(folder), "signal SIGBUS\ntime 1705492000\n");
    {
        RunningEngine engine(environment(Status::kUnset));
        engine.setActive(true);
        engine.setUserPropertyString("|", "participating_tests");
        EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        advance(10 * kMinute);
        engine.setActive(false);
        EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        // No identifier before there is an event.
        EXPECT_EQ(names(), QStringList());
        EXPECT_EQ(installation() + state("session").toString(), QString());
        log(engine, "tapped");
    }
    EXPECT_EQ(names(), QStringList{"tapped"});
    EXPECT_EQ(installation().size(), 36);
    EXPECT_FALSE(fs::exists(MeasurementFolder::crashIn(folder)));
    RunningEngine engine(environment(Status::kUnset));
    // Granted in the middle, automatic events come from here on; taken back, they go.
    engine.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
    engine.setActive(true);
    log(engine, "granted");
    advance(kMinute);
    engine.setActive(false);
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    EXPECT_EQ(names().join(' '), "tapped pz_first_open granted pz_engagement");
    engine.setConsent(Kind::kAnalyticsStorage, Status::kUnset);
    log(engine, "last");
    EXPECT_EQ(names().join(' '), "tapped granted last");
}

TEST_F(ConsentTest, DenialErasesAndNothingIsStoredUntilItIsTakenBack) {
    QString first;
    {
        RunningEngine engine(environment());
        log(engine, "before");
        first = installation();
        engine.setConsent(Kind::kAnalyticsStorage, Status::kDenied);
        engine.setUserPropertyString("value", "property");
        log(engine, "without");
        EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
        EXPECT_FALSE(isAnythingStored());
    }
    // It outlives the process, with its time, also for what is said before that has been read.
    AnalyticsEngine engine(environment());
    EXPECT_EQ(engine.consent(), std::nullopt);
    engine.logEventWithName("without", {});
    advance(kMinute);
    engine.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
    engine.logEventWithName("after", {});
    engine.start();
    EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
    const Consent consent = engine.consent().value();
    EXPECT_EQ(consent.answer(Kind::kAnalyticsStorage).status, Status::kGranted);
    EXPECT_EQ(consent.answer(Kind::kAnalyticsStorage).time, kNoon + kMinute);
    EXPECT_EQ(consent.answer(Kind::kAdStorage), Consent::Answer());
    EXPECT_EQ(names().join(' '), "pz_session_start after");
    EXPECT_NE(installation(), first);
    EXPECT_EQ(state("user_properties").toObject(), QJsonObject());
}

TEST_F(ConsentTest, ADeployersWordStandsUntilSomebodyAnswers) {
    {
        RunningEngine engine(environment());
        log(engine, "before");
    }
    RunningEngine engine(environment(consentStatusOf("Granted, please")));
    log(engine, "without");
    EXPECT_FALSE(isAnythingStored());
    engine.setConsent(Kind::kAnalyticsStorage, Status::kGranted);
    log(engine, "answered");
    EXPECT_EQ(ownNames(), QStringList{"answered"});
}

TEST_F(ConsentTest, APauseKeepsWhatThereIsAndCollectsAndSendsNothing) {
    Collector collector;
    collector.setAnswers({{.bytes = "", .then = HttpAnswer::Then::kKeepSilent}});
    {
        RunningEngine engine(sending(collector.address()));
        engine.logEventWithName("before", {});
        ASSERT_TRUE(collector.waitForBatches(1));
        // It takes back what is on its way, which is sent once more afterwards.
        engine.setCollecting(false);
        log(engine, "meanwhile");
        EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
        EXPECT_EQ(ownNames(), QStringList{"before"});
        engine.setCollecting(true);
        ASSERT_TRUE(collector.waitForBatches(2));
        EXPECT_TRUE(becomesTrue([&] { return names().isEmpty(); }));
        engine.setCollecting(false);
    }
    // It outlives the process.
    RunningEngine engine(sending(collector.address()));
    log(engine, "meanwhile");
    EXPECT_TRUE(engine.consent()->isPaused);
    engine.setCollecting(true);
    engine.logEventWithName("after", {});
    ASSERT_TRUE(collector.waitForBatches(3));
    EXPECT_EQ(collector.names(), (QStringList{"before", "before", "after"}));
}

// An audience for advertising needs two consents to come to be, and a third to leave the machine.
TEST_F(ConsentTest, AdvertisingNeedsItsOwnConsents) {
    const Collector collector;
    const std::array kinds{Kind::kAdStorage, Kind::kAdPersonalization, Kind::kAdUserData};
    for (std::size_t denied = 0; denied <= kinds.size(); ++denied) {
        folder = parent / std::to_string(denied);
        AnalyticsEnvironment with = sending(collector.address());
        with.audiences = {{.name = "ads", .conditions = {}, .forAdvertising = true},
                          {.name = "all", .conditions = {}}};
        AnalyticsEngine engine(std::move(with));
        for (std::size_t i = 0; i < kinds.size(); ++i) {
            engine.setConsent(kinds.at(i), i == denied ? Status::kDenied : Status::kGranted);
        }
        engine.logEventWithName("tapped", {});
        engine.start();
        ASSERT_TRUE(collector.waitForBatches(denied + 1));
        const bool isKept = denied > 1;
        EXPECT_EQ(state("audiences").toObject().size(), isKept ? 2 : 1) << denied;
        const Attributes resource = collector.batches().back().resource;
        EXPECT_EQ(resource.contains("pz.user_property.pz_in_ads"), denied == kinds.size());
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
    {
        RunningEngine engine(quiet());
        engine.setConsent(Kind::kAdStorage, Status::kGranted);
        log(engine, "before");
    }
    fs::rename(file, aside);
    // No file that can be opened, which is known from a missing one.
    fs::create_symlink(file, file);
    RunningEngine engine(quiet());
    EXPECT_FALSE(log(engine, "meanwhile"));
    EXPECT_EQ(engine.consent(), std::nullopt);
    EXPECT_EQ(ownNames(), QStringList{"before"});
    fs::rename(aside, file);
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    EXPECT_EQ(ownNames(), (QStringList{"before", "meanwhile"}));
    EXPECT_EQ(engine.consent()->answer(Kind::kAdStorage).status, Status::kGranted);
}

TEST_F(ConsentTest, AProcessThatFindsTheFolderHeldMeasuresNothing) {
    RunningEngine one(quiet());
    log(one, "one");
    RunningEngine other(quiet());
    EXPECT_FALSE(log(other, "other"));
    EXPECT_EQ(ownNames(), QStringList{"one"});
    // The one that takes its place does, as after an application that is just ending.
    one.stop();
    EXPECT_TRUE(other.waitUntilStored(kDeadline));
    EXPECT_EQ(ownNames(), (QStringList{"one", "other"}));
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
        EXPECT_FALSE(log(engine, "waiting"));
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
    EXPECT_NE(installation(), first);
    EXPECT_EQ(ownNames(), QStringList{"after"});
}

TEST_F(ConsentTest, ADenialThatComesAtTheLastMomentStopsTheUpload) {
    const Collector collector;
    AnalyticsEnvironment with = sending(collector.address());
    with.audiences = {{.name = "here", .conditions = {}}};
    AnalyticsEngine* engine = nullptr;
    bool isDenied = false;
    with.now = [&, now = with.now] {
        // When the event is stored and not sent yet.
        if (engine != nullptr && !isDenied && names().contains("tapped")) {
            isDenied = true;
            engine->setConsent(Kind::kAnalyticsStorage, Status::kDenied);
        }
        return now();
    };
    AnalyticsEngine owner(std::move(with));
    owner.logEventWithName("tapped", {});
    engine = &owner;
    owner.start();
    EXPECT_TRUE(becomesTrue([&] { return owner.waitUntilObeyed(kDeadline) && isDenied; }));
    EXPECT_FALSE(isAnythingStored());
    owner.stop();
    EXPECT_EQ(collector.names(), QStringList());
}

TEST_F(ConsentTest, AnIdentifierIsRenewedWhenNothingWaitsUnderTheOldOne) {
    const Collector collector;
    const auto sendOne = [&](const char* name) {
        const std::size_t before = collector.batches().size();
        RunningEngine engine(sending(collector.address()));
        log(engine, name);
        EXPECT_TRUE(collector.waitForBatches(before + 1));
        EXPECT_TRUE(becomesTrue([&] { return names().isEmpty(); }));
        return collector.batches().back().resource["app.installation.id"];
    };
    const QString first = sendOne("first");
    advance(90 * kDay - 1);
    EXPECT_EQ(sendOne("second"), first);
    advance(1);
    const QString third = sendOne("third");
    EXPECT_NE(third, first);
    RunningEngine engine(quiet({{"measurement_identifier_days", "10"}}));
    log(engine, "waiting");
    advance(20 * kDay);
    log(engine, "later");
    EXPECT_EQ(installation(), third);
}

}  // namespace
}  // namespace pellumar::test
