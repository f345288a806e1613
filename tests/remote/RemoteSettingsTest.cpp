#include "remote/RemoteSettings.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "FakeRemoteConfig.h"
#include "remote/Environment.h"
#include "remote/FeatureToggle.h"
#include "remote/InstallationToken.h"
#include "support/RecordingConsole.h"

namespace pellumar {
namespace {

using Status = RemoteConfigFetchStatus;

class RemoteSettingsTest : public testing::Test {
  protected:
    void fetch() {
        settings_->fetch([this] { ++completions_; });
    }
    [[nodiscard]] std::string printed() const { return console_.lines().join('\n').toStdString(); }

    template <typename Value>
    [[nodiscard]] Value read(const std::optional<QString>& text, Value defaultValue) {
        config_->values["key"] = text;
        return settings_->value(ScenarioParameter<Value>{"key", defaultValue});
    }

    test::RecordingConsole console_;
    std::shared_ptr<test::FakeRemoteConfig> config_ = std::make_shared<test::FakeRemoteConfig>();
    std::shared_ptr<RemoteSettings> settings_ = std::make_shared<RemoteSettings>(config_, console_);
    int completions_ = 0;
};

TEST_F(RemoteSettingsTest, AFetchActivatesPrintsAndCompletes) {
    config_->values = {{"key", "one"}};
    fetch();
    EXPECT_EQ(config_->maximumAge.count(), 3600);
    config_->fetchHandler(Status::kSuccess, std::nullopt);
    EXPECT_EQ(completions_, 0);
    config_->activationHandler(false, std::nullopt);
    EXPECT_EQ(printed(), "Activate remote configs successfuly\n\nREMOTE CONFIGS:\n    key: one\n");
    EXPECT_EQ(completions_, 1);
}

TEST_F(RemoteSettingsTest, EveryFailureIsALineAndCompletes) {
    fetch();
    config_->fetchHandler(Status::kSuccess, RemoteConfigError{"no route"});
    config_->fetchHandler(Status::kThrottled, std::nullopt);
    config_->fetchHandler(Status::kFailure, std::nullopt);
    config_->fetchHandler(Status::kNoFetchYet, std::nullopt);
    EXPECT_FALSE(config_->activationHandler);
    config_->fetchHandler(Status::kSuccess, std::nullopt);
    config_->activationHandler(true, RemoteConfigError{"disk full"});
    EXPECT_EQ(printed(),
              "Failed to fetch scenario: no route\n"
              "Failed to fetch scenario with status throttled (3)\n"
              "Failed to fetch scenario with status failure (2)\n"
              "Failed to fetch scenario with status noFetchYet (0)\n"
              "Failed to activate remote configs: Optional(\"disk full\")");
    EXPECT_EQ(completions_, 5);
}

TEST_F(RemoteSettingsTest, AFetchHoldsTheStoreWeakly) {
    fetch();
    config_->fetchHandler(Status::kSuccess, std::nullopt);
    settings_.reset();
    config_->values = {{"key", "one"}};
    config_->activationHandler(true, std::nullopt);
    EXPECT_EQ(printed(), "Activate remote configs successfuly");
    EXPECT_EQ(completions_, 1);

    config_->activationHandler = nullptr;
    config_->fetchHandler(Status::kSuccess, std::nullopt);
    EXPECT_FALSE(config_->activationHandler);
    EXPECT_EQ(completions_, 1);
    config_->fetchHandler(Status::kThrottled, std::nullopt);
    EXPECT_EQ(completions_, 2);
}

TEST_F(RemoteSettingsTest, PrintsValuesWithoutTextAndNothingWithoutValues) {
    settings_->printRemoteConfigs();
    EXPECT_TRUE(console_.lines().isEmpty());
    config_->values = {{"key", std::nullopt}};
    settings_->printRemoteConfigs();
    EXPECT_EQ(printed(), "\nREMOTE CONFIGS:\n    key: (null)\n");
}

TEST_F(RemoteSettingsTest, ReadsText) {
    EXPECT_EQ(read<QString>(" Two words ", "default"), " Two words ");
    EXPECT_EQ(read<QString>("", "default"), "default");
    EXPECT_EQ(read<QString>(std::nullopt, "default"), "default");
    EXPECT_EQ(settings_->value(ScenarioParameter<QString>{"other", "default"}), "default");
}

TEST_F(RemoteSettingsTest, ReadsBooleans) {
    for (const char* text : {"true", "TRUE", "1"}) {
        EXPECT_TRUE(read(text, false)) << text;
    }
    for (const char* text : {"false", "False", "0"}) {
        EXPECT_FALSE(read(text, true)) << text;
    }
    for (const char* text : {"", "yes", "Yes", "no", "on", "2", " true", "true ", "01"}) {
        EXPECT_TRUE(read(text, true)) << text;
        EXPECT_FALSE(read(text, false)) << text;
    }
}

TEST_F(RemoteSettingsTest, ReadsIntegers) {
    const std::pair<const char*, qint64> numbers[] = {
        {"42", 42},
        {"+42", 42},
        {"-42", -42},
        {"-0", 0},
        {"000000000000000000000000000007", 7},
        {"9223372036854775807", std::numeric_limits<qint64>::max()},
        {"-9223372036854775808", std::numeric_limits<qint64>::min()},
    };
    for (const auto& [text, number] : numbers) {
        EXPECT_EQ(read<qint64>(text, 5), number) << text;
    }
    for (const char* text : {"",
                             "+",
                             "-",
                             "+-1",
                             "-+1",
                             "++1",
                             "--1",
                             "42 ",
                             " 42",
                             "4.2",
                             "1e3",
                             "0x10",
                             "1_000",
                             "9223372036854775808",
                             "+9223372036854775808",
                             "-9223372036854775809",
                             "١٢"}) {
        EXPECT_EQ(read<qint64>(text, 5), 5) << text;
    }
    EXPECT_EQ(read<std::int64_t>("42", 5), 42);
}

TEST_F(RemoteSettingsTest, OtherTypesReadAsTheirDefault) {
    EXPECT_EQ(read<double>("4.5", 0.5), 0.5);
    EXPECT_EQ(read<int>("4", 7), 7);
    EXPECT_EQ(read<quint64>("4", 7U), 7U);
}

class Toggle : public FeatureToggle {
  public:
    explicit Toggle(bool defaultValue) : defaultValue_(defaultValue) {}
    [[nodiscard]] QString key() const override { return "key"; }
    [[nodiscard]] bool defaultValue() const override { return defaultValue_; }

  private:
    bool defaultValue_;
};

TEST_F(RemoteSettingsTest, TogglesFollowTheBooleanRule) {
    EXPECT_TRUE(Toggle(true).isEnabled(*settings_));
    config_->values["key"] = "0";
    EXPECT_FALSE(Toggle(true).isEnabled(*settings_));
    config_->values["key"] = "TRUE";
    EXPECT_TRUE(Toggle(false).isEnabled(*settings_));
    config_->values["key"] = "on";
    EXPECT_FALSE(Toggle(false).isEnabled(*settings_));
}

TEST(EnvironmentValue, KeepsTheCandidateOfTheAppStore) {
    EXPECT_EQ(EnvironmentValue<QString>("dev", "appStore").value, "appStore");
}

class FixedToken : public InstallationsService {
  public:
    explicit FixedToken(std::optional<InstallationsError> error) : error_(std::move(error)) {}
    void authTokenForcingRefresh(bool forceRefresh, TokenHandler handler) override {
        const QString token = forceRefresh ? "fresh" : "stale";
        handler(error_ ? std::nullopt : std::optional(token), error_);
    }

  private:
    std::optional<InstallationsError> error_;
};

TEST(InstallationToken, IsRefreshedAndPrinted) {
    test::RecordingConsole console;
    FixedToken given(std::nullopt);
    printInstallationToken(given, console);
    FixedToken refused(InstallationsError{"offline"});
    printInstallationToken(refused, console);
    EXPECT_EQ(console.lines().join('\n').toStdString(),
              "Installation auth token: fresh\nError fetching token: offline");
}

}  // namespace
}  // namespace pellumar
