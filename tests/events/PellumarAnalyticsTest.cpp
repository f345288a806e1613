#include "events/PellumarAnalytics.h"

#include <gtest/gtest.h>

#include <QStringList>

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

// What is counted at the other end, misspellings included.
TEST(EventNames, AreTheCatalogue) {
    const QStringList names = {
        event::kTappedUnzip,
        event::kTappedZip,
        event::kTappedFiles,
        event::kTappedPhotos,
        event::kUsedShareExtension,
        event::kZippedSuccessfully,
        event::kFailedToZip,
        event::kUnzippedSuccessfully,
        event::kFailedToUnzip,
        event::kStartedTutorial,
        event::kFinishedTutorial,
        event::kEvaluatedApp,
        event::kDeveloperTapped,
    };
    EXPECT_EQ(names.join(' '),
              "tapped_unzip tapped_zip tapped_files tapped_photos used_share_extension "
              "zipped_successfuly failed_to_zip unzipped_successfuly failed_to_unzip "
              "started_tutorial finished_tutorial evaluated_app developer_tapped");
}

TEST(RecordingAnalytics, KeepsTheLatestInBoundedMemory) {
    RecordingAnalytics engine;
    for (qsizetype i = 0; i <= RecordingAnalytics::kMostKept; ++i) {
        engine.logEventWithName(QString::number(i), std::nullopt);
    }
    EXPECT_EQ(engine.events().size(), RecordingAnalytics::kMostKept);
    EXPECT_EQ(engine.events().first().name, "1");
}

}  // namespace
}  // namespace pellumar
