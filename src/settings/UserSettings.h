#pragma once

#include <QString>

#include "platform/UserDefaults.h"

namespace pellumar {

// The names of the user's persisted flags, and the preferences that hold them. The names must never
// change: they are what the files of installed versions hold.
class UserSettings {
  public:
    // Registers the defaults in `userDefaults`, which must outlive this.
    explicit UserSettings(UserDefaults& userDefaults);

    // The one over the application's own preferences, made when it is first asked for.
    [[nodiscard]] static UserSettings& shared();

    [[nodiscard]] UserDefaults& userDefaults() const { return userDefaults_; }

    // The user allows usage events to be sent. True until the user says otherwise.
    [[nodiscard]] const QString& sendUsageDataKey() const { return sendUsageDataKey_; }
    // The onboarding screen has appeared.
    [[nodiscard]] const QString& didShowOnboardingKey() const { return didShowOnboardingKey_; }
    // The user gave a high rating.
    [[nodiscard]] const QString& achievedSuccessKey() const { return achievedSuccessKey_; }
    // The system's rating prompt has been asked for.
    [[nodiscard]] const QString& didRequestKey() const { return didRequestKey_; }

  private:
    UserDefaults& userDefaults_;
    QString sendUsageDataKey_ = QStringLiteral("SEND_USAGE_DATA");
    QString didShowOnboardingKey_ = QStringLiteral("ONBOARDING_KEY");
    QString achievedSuccessKey_ = QStringLiteral("ACHIEVED_SUCCESS");
    QString didRequestKey_ = QStringLiteral("DIDREQUEST");
};

}  // namespace pellumar
