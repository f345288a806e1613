#include <fstream>

#include "EngineTest.h"

namespace pellumar::test {
namespace {

class UploadTest : public EngineTest {
  protected:
    ~UploadTest() override { EXPECT_EQ(collector.faults(), QStringList()); }

    // Logs an event and waits until that many batches have come.
    void logAndWait(AnalyticsEngine& engine, std::size_t batches) {
        engine.logEventWithName("tapped", {});
        ASSERT_TRUE(collector.waitForBatches(batches));
    }
    // Whether the store becomes empty: the answers have been understood as the end of it.
    void expectNothingLeft() { EXPECT_EQ(namesOf(storedEvents(folder)), QStringList()); }

    Collector collector;
};

TEST_F(UploadTest, ABatchHoldsEverythingTheEventsCameWith) {
    {
        AnalyticsEngine engine(sending(collector.address()));
        engine.setUserPropertyString("|1|7|", "participating_tests");
        engine.setConsent(ConsentKind::kAdUserData, ConsentStatus::kDenied);
        engine.logEventWithName("evaluated",
                                QVariantMap{{"rating", qint64{1} << 62},
                                            {"share", 0.5},
                                            {"first", true},
                                            {"where", "Grüße \"an\" 😀"}});
        ASSERT_TRUE(collector.waitFor([this](const auto& batches) {
            return !batches.empty() && batches.back().records.back().name == "evaluated";
        }));
    }
    const CollectedBatch batch = collector.batches().back();
    EXPECT_EQ(batch.resource["service.name"], "test");
    EXPECT_EQ(batch.resource["app.installation.id"].size(), 36);
    EXPECT_EQ(batch.resource["pz.user_property.participating_tests"], "|1|7|");
    EXPECT_EQ(batch.resource["pz.user_property.participating_tests.set_at"],
              QString::number(kNoon));
    const CollectedRecord event = batch.records.back();
    EXPECT_EQ(event.milliseconds, kNoon);
    EXPECT_EQ(event.attributes["rating"], "4611686018427387904");
    EXPECT_EQ(event.attributes["share"], "0.5");
    EXPECT_EQ(event.attributes["first"], "true");
    EXPECT_EQ(event.attributes["where"], "Grüße \"an\" 😀");
    EXPECT_EQ(event.attributes["pz.consent.ad_user_data"], "denied");
    EXPECT_EQ(event.attributes["session.id"].size(), 36);
    EXPECT_EQ(batch.head.find("cookie"), std::string::npos);
    EXPECT_EQ(collector.names().mid(0, 3),
              (QStringList{"pz_session_start", "pz_first_open", "evaluated"}));
    expectNothingLeft();
}

}  // namespace
}  // namespace pellumar::test
