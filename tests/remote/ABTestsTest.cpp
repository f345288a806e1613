#include "remote/ABTests.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <vector>

#include "FakeRemoteConfig.h"
#include "platform/FIRApp.h"
#include "platform/RecordingAnalytics.h"
#include "platform/TextLength.h"
#include "remote/ABTestManager.h"
#include "remote/FeatureToggle.h"
#include "remote/Variants.h"
#include "support/RecordingConsole.h"

namespace pellumar {
namespace {

template <typename Value>
class Experiment : public ABExperiment<Value> {
  public:
    explicit Experiment(QString id, Value defaultVariant = {})
        : id_(std::move(id)), defaultVariant_(std::move(defaultVariant)) {}
    [[nodiscard]] QString key() const override { return "experiment"; }
    [[nodiscard]] QString id() const override { return id_; }
    [[nodiscard]] Value defaultVariant() const override { return defaultVariant_; }

  private:
    QString id_;
    Value defaultVariant_;
};

class ABTestsTest : public testing::Test {
  protected:
    void registerIds(const QStringList& ids) const {
        ABExperiments experiments;
        for (const QString& id : ids) {
            experiments.push_back(std::make_shared<Experiment<QString>>(id));
        }
        tests_.registerExperiments(experiments);
    }
    [[nodiscard]] std::string participation() const {
        return analytics_.userProperties().value("participating_tests").toStdString();
    }

    test::RecordingConsole console_;
    RecordingAnalytics analytics_;
    std::shared_ptr<test::FakeRemoteConfig> config_ = std::make_shared<test::FakeRemoteConfig>();
    RemoteSettings settings_{config_, console_};
    ABTests tests_{settings_, analytics_, console_};
};

using ABTestsDeathTest = ABTestsTest;

TEST_F(ABTestsTest, RegistrationTellsTheIdsInOrder) {
    tests_.registerExperiments(ABTestManager::shared().experiments());
    EXPECT_EQ(participation(), "|");
    registerIds({"7", "1"});
    EXPECT_EQ(participation(), "|7|1|");
    EXPECT_EQ(console_.lines().join('\n').toStdString(),
              "Compatible experiments: |\nCompatible experiments: |7|1|");
}

TEST_F(ABTestsDeathTest, MoreThan36CharactersStopTheProcess) {
    QStringList ids(17, "x");
    registerIds(ids);
    EXPECT_EQ(participation().size(), 35U);
    ids.last() = "xx";
    registerIds(ids);
    EXPECT_EQ(participation().size(), 36U);
    ids.last() = "xxx";
    EXPECT_DEATH(registerIds(ids), "Experiment keys can't have more than 36 characters");
    EXPECT_DEATH(registerIds(QStringList(18, "x")),
                 "Experiment keys can't have more than 36 characters");
}

// Counted in letters these would pass, and the measurement would then cut what it was given.
TEST_F(ABTestsDeathTest, MeasuresIdsAsTheMeasurementDoes) {
    const QString rocket = QString::fromUtf8("\xF0\x9F\x9A\x80");
    const QString accented = QString::fromUtf8("e\xCC\x81");
    for (const QString& id : {rocket, accented}) {
        registerIds(QStringList(11, id));
        const QString told = analytics_.userProperties().value("participating_tests");
        EXPECT_EQ(textCutTo(told, FIRAnalytics::kMostUserPropertyText), told);
        EXPECT_DEATH(registerIds(QStringList(12, id)), "can't have more than 36 characters");
    }
}

TEST_F(ABTestsTest, VariantsAreReadAfreshAndUnchanged) {
    const Experiment<QString> text("1", Variants::kDefault);
    const Experiment<bool> boolean("2", true);
    EXPECT_EQ(tests_.variant(text), "default");
    for (const char* variant : {"variant_a", "variant_b", "Variant of nobody "}) {
        config_->values["experiment"] = variant;
        EXPECT_EQ(tests_.variant(text), variant);
        EXPECT_TRUE(tests_.variant(boolean));
    }
    config_->values["experiment"] = "0";
    EXPECT_FALSE(tests_.variant(boolean));
    config_->values["experiment"] = "";
    EXPECT_EQ(tests_.variant(text), Variants::kDefault);
}

class SharedToggle : public FeatureToggle {
  public:
    [[nodiscard]] QString key() const override { return "toggle"; }
    [[nodiscard]] bool defaultValue() const override { return false; }
};

TEST(SharedDeathTest, SharedStoresStandOnTheConfiguredServices) {
    EXPECT_DEATH(static_cast<void>(ABTests::shared()), "before FIRApp::configure");

    const auto config = std::make_shared<test::FakeRemoteConfig>();
    const auto analytics = std::make_shared<RecordingAnalytics>();
    FIRApp::configure(
        [&] { return FIRApp::Services{.analytics = analytics, .remoteConfig = config}; });
    std::vector<RemoteSettings*> found(4);
    std::vector<std::thread> threads(found.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        threads[i] = std::thread([&settings = found[i]] { settings = &RemoteSettings::shared(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(std::count(found.begin(), found.end(), &RemoteSettings::shared()), 4);

    config->values = {{"toggle", "1"}, {"experiment", "variant_a"}};
    EXPECT_TRUE(SharedToggle().isEnabled());
    EXPECT_EQ(ABTests::shared().variant(Experiment<QString>("1")), Variants::kVariantA);
    ABTests::shared().registerExperiments({});
    EXPECT_EQ(analytics->userProperties().value("participating_tests"), "|");
}

}  // namespace
}  // namespace pellumar
