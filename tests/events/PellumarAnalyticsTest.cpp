#include "events/PellumarAnalytics.h"

#include <gtest/gtest.h>

#include "events/EventNames.h"
#include "platform/RecordingAnalytics.h"
#include "support/TemporaryFolder.h"

namespace pellumar {
namespace {

class PellumarAnalyticsTest : public testing::Test {
  protected:
    void allow(bool allowed) { defaults_.setBool(allowed, settings_.sendUsageDataKey()); }

    test::TemporaryFolder folder_;
    UserDefaults defaults_{QString::fromStdString((folder_ / "s.conf").native())};
    UserSettings settings_{defaults_};
    RecordingAnalytics engine_;
    PellumarAnalytics analytics_{settings_, engine_};
};

TEST_F(PellumarAnalyticsTest, TheFlagCountsFromTheNextEventAndNothingIsReplayed) {
    using Events = QList<RecordingAnalytics::Event>;
    analytics_.logEvent(event::kTappedFiles);
    analytics_.logEvaluatedApp(3);
    const Events sent = {{"tapped_files", std::nullopt}, {"evaluated_app", {{{"rating", 3}}}}};
    EXPECT_EQ(engine_.events(), sent);

    allow(false);
    analytics_.logEvent(event::kTappedPhotos);
    analytics_.logEvaluatedApp(5);
    engine_.setUserPropertyString("|", "participating_tests");
    EXPECT_EQ(engine_.events(), sent);
    EXPECT_EQ(engine_.userProperties().value("participating_tests"), "|");

    allow(true);
    EXPECT_EQ(engine_.events(), sent);
    analytics_.logEvent(event::kTappedZip);
    EXPECT_EQ(engine_.events().size(), 3);
}

}  // namespace
}  // namespace pellumar
