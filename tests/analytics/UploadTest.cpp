#include <optional>

#include "EngineTest.h"
#include "analytics/Uploader.h"

namespace pellumar::test {
namespace {

using Then = HttpAnswer::Then;

class UploadTest : public EngineTest {
  protected:
    void TearDown() override { EXPECT_EQ(collector.faults(), QStringList()); }

    // Sends at once, and nothing but what a test logs.
    [[nodiscard]] AnalyticsEnvironment eager(const QMap<QString, QString>& parameters = {}) const {
        return sending(collector.address(), parameters);
    }
    // Waits until it is kept how long the collector is left alone.
    [[nodiscard]] qint64 waitForHold() const {
        qint64 until = 0;
        EXPECT_TRUE(becomesTrue([&] {
            until = state("upload_held_until").toInteger();
            return until > wall;
        }));
        return until - wall;
    }
    void waitUntilNothingIsLeft() const {
        EXPECT_TRUE(becomesTrue([&] { return names().isEmpty(); }));
    }
    // Whether the engine has looked whether there is something to send, and sent nothing.
    [[nodiscard]] bool isPatient(AnalyticsEngine& engine) const {
        const std::size_t before = collector.batches().size();
        const bool hasLooked =
            engine.waitUntilStored(kDeadline) && engine.waitUntilStored(kDeadline);
        return hasLooked && collector.batches().size() == before;
    }
    [[nodiscard]] QString uid(std::size_t batch) const {
        return collector.batches().at(batch).records[0].attributes["log.record.uid"];
    }

    Collector collector;
};

TEST_F(UploadTest, ABatchHoldsWhatTheEventsCameWithAndNothingOfTheUser) {
    RunningEngine engine(eager());
    engine.setConsent(ConsentKind::kAdUserData, ConsentStatus::kDenied);
    engine.logEventWithName("evaluated",
                            QVariantMap{{"rating", qint64{1} << 62},
                                        {"share", 0.5},
                                        {"first", true},
                                        {"where", "Grüße \"an\" 😀"}});
    ASSERT_TRUE(collector.waitForBatches(1));
    const CollectedBatch batch = collector.batches().back();
    EXPECT_EQ(batch.resource["pz.consent.ad_user_data"], "denied");
    const Attributes& event = batch.records.back().attributes;
    EXPECT_EQ(event["rating"], "4611686018427387904");
    EXPECT_EQ(event["share"], "0.5");
    EXPECT_EQ(event["first"], "true");
    EXPECT_EQ(event["where"], "Grüße \"an\" 😀");
    EXPECT_EQ(event["session.id"].size(), 36);
    EXPECT_EQ(batch.head.find("cookie"), std::string::npos);
    EXPECT_NE(batch.head.find("accept-language: *"), std::string::npos);
}

TEST_F(UploadTest, TheseAnswersAreTheEndOfABatch) {
    const std::map<std::string, HttpAnswer> cases{
        {"success",
         LoopbackServer::answer(200, R"({"partialSuccess":{"rejectedLogRecords":"1"}})")},
        {"success, at length", LoopbackServer::answer(202, std::string(200'000, ' '))},
        {"too large, at length", LoopbackServer::answer(413, std::string(200'000, 'x'))},
        {"too large, cut off",
         HttpAnswer{.bytes = "HTTP/1.1 413 Too Large\r\nContent-Length: 9\r\n\r\n{"}},
        {"server's fault", LoopbackServer::answer(500, "")},
    };
    for (const auto& [name, answer] : cases) {
        SCOPED_TRACE(name);
        folder = parent / name;
        const std::size_t before = collector.batches().size();
        collector.setAnswers({answer});
        RunningEngine engine(eager());
        engine.logEventWithName("tapped", {});
        ASSERT_TRUE(collector.waitForBatches(before + 1));
        waitUntilNothingIsLeft();
        EXPECT_TRUE(isPatient(engine));
    }
}

TEST_F(UploadTest, TheseAnswersAreWaitedOutAcrossRestarts) {
    const std::map<std::string, std::pair<HttpAnswer, std::optional<qint64>>> cases{
        {"too many", {LoopbackServer::answer(429, "", "Retry-After: 120\r\n"), 2 * kMinute}},
        {"date",
         {LoopbackServer::answer(503, "", "Retry-After: Wed, 17 Jan 2024 20:00:30 GMT\r\n"),
          30'000}},
        {"unavailable", {LoopbackServer::answer(503, ""), {}}},
        {"dropped", {HttpAnswer{}, {}}},
        {"cut off", {HttpAnswer{.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n{"}, {}}},
        {"portal", {LoopbackServer::answer(200, "Sign in", "Content-Type: text/HTML\r\n"), {}}},
        {"redirect", {LoopbackServer::answer(302, "", "Location: http://127.0.0.1:1/\r\n"), {}}},
    };
    // Before the date above.
    wall = 1'705'521'600'000;
    for (const auto& [name, expected] : cases) {
        SCOPED_TRACE(name);
        folder = parent / name;
        const std::size_t before = collector.batches().size();
        // Qt asks again by itself, for a few times, when a connection is dropped.
        collector.setAnswers(std::deque<HttpAnswer>(10, expected.first));
        qint64 hold = 0;
        {
            RunningEngine engine(eager());
            engine.logEventWithName("tapped", {});
            ASSERT_TRUE(collector.waitForBatches(before + 1));
            hold = waitForHold();
            EXPECT_TRUE(isPatient(engine));
        }
        EXPECT_TRUE(expected.second
                        ? hold == *expected.second
                        : hold >= RetryHold::kFirstWait / 2 && hold <= RetryHold::kFirstWait)
            << hold;
        RunningEngine engine(eager());
        EXPECT_TRUE(isPatient(engine));
        const std::size_t sent = collector.batches().size();
        collector.setAnswers({});
        advance(hold);
        engine.logEventWithName("tapped", {});
        ASSERT_TRUE(collector.waitForBatches(sent + 1));
        EXPECT_EQ(uid(before), uid(sent));
        waitUntilNothingIsLeft();
        advance(-hold);
    }
}

TEST_F(UploadTest, WaitsTwiceAsLongWithEveryFailureUpToABound) {
    RetryHold hold;
    for (const qint64 longest : {10'000, 20'000, 40'000, 80'000}) {
        hold.fail(kNoon, {}, 0);
        EXPECT_EQ(hold.waitAt(kNoon), longest / 2);
    }
    for (int i = 0; i < 100; ++i) {
        hold.fail(kNoon, {}, 1);
    }
    EXPECT_EQ(hold.waitAt(kNoon), RetryHold::kLongestBackoff);
    // The clock is set back by a year.
    EXPECT_EQ(hold.waitAt(kNoon - 365 * kDay), 0);
}

TEST_F(UploadTest, ACollectorThatNeverAnswersDoesNotHoldUpTheEnd) {
    collector.setAnswers({{.bytes = "", .then = Then::kKeepSilent}});
    {
        RunningEngine engine(eager());
        engine.logEventWithName("tapped", {});
        ASSERT_TRUE(collector.waitForBatches(1));
        const auto start = std::chrono::steady_clock::now();
        engine.stop();
        // The bound is 200 ms; a busy machine is allowed some more.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    }
    EXPECT_EQ(ownNames(), QStringList{"tapped"});
    const RunningEngine engine(eager());
    ASSERT_TRUE(collector.waitForBatches(2));
    waitUntilNothingIsLeft();
    EXPECT_EQ(uid(0), uid(1));
}

TEST_F(UploadTest, SendsAtOnceWhenABatchIsFull) {
    RunningEngine engine(eager({{"measurement_batch_events", "10"}}));
    engine.logEventWithName("first", {});
    ASSERT_TRUE(collector.waitForBatches(1));
    waitUntilNothingIsLeft();
    log(engine, "tapped", 9);
    EXPECT_TRUE(isPatient(engine));
    log(engine, "tenth");
    ASSERT_TRUE(collector.waitForBatches(2));
    EXPECT_EQ(collector.batches().back().records.size(), 10U);
}

TEST_F(UploadTest, NothingGoesWhereOthersReadAlong) {
    for (const char* address : {"",
                                "collector",
                                "ftp://host",
                                "http://",
                                "http://[bad",
                                "http://collector.example.org:4318",
                                "http://localhost.example.org",
                                "http://192.168.1.7"}) {
        EXPECT_FALSE(HttpTransport::maker(address, {})) << address;
    }
    for (const char* address :
         {"https://host:1/otlp/", "http://localhost:4318", "http://127.1.2.3", "http://[::1]:1"}) {
        EXPECT_TRUE(HttpTransport::maker(address, {})) << address;
    }
    // Nor a token, to nobody.
    AnalyticsEnvironment with = quiet();
    with.transport = HttpTransport::maker(collector.address(), "secret");
    RunningEngine engine(std::move(with));
    engine.logEventWithName("tapped", {});
    ASSERT_TRUE(collector.waitForBatches(1));
    EXPECT_EQ(collector.batches()[0].head.find("authorization"), std::string::npos);
    EXPECT_EQ(collector.batches()[0].head.find("secret"), std::string::npos);
}

}  // namespace
}  // namespace pellumar::test
