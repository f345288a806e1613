#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <optional>

namespace pellumar {

enum class ConsentKind { kAdStorage, kAnalyticsStorage, kAdUserData, kAdPersonalization };
inline constexpr std::array kConsentKinds = {ConsentKind::kAdStorage,
                                             ConsentKind::kAnalyticsStorage,
                                             ConsentKind::kAdUserData,
                                             ConsentKind::kAdPersonalization};

// Unset: nobody has been asked.
enum class ConsentStatus { kUnset, kGranted, kDenied };

// "ad_storage", "analytics_storage", "ad_user_data", "ad_personalization".
[[nodiscard]] QString toText(ConsentKind kind);
// "unset", "granted", "denied".
[[nodiscard]] QString toText(ConsentStatus status);
// What a deployer has set: nothing at all is unset, and what makes no sense is a no.
[[nodiscard]] ConsentStatus consentStatusOf(const QString& text);

// All that decides whether something may be measured, kept and sent: the four answers, a pause, and
// an erasure that is still owed. Every step asks this, and asks nothing else.
class Consent {
  public:
    struct Answer {
        ConsentStatus status = ConsentStatus::kUnset;
        // When it was given, in milliseconds since 1970 in UTC.
        std::optional<qint64> time;

        friend bool operator==(const Answer&, const Answer&) = default;
    };

    // Nobody has answered; "analytics_storage" is as the deployer says until somebody does.
    explicit Consent(ConsentStatus deployed = ConsentStatus::kUnset) : deployed_(deployed) {}

    [[nodiscard]] const Answer& answer(ConsentKind kind) const;
    // A denial of storage owes an erasure, each time.
    void set(ConsentKind kind, ConsentStatus status, qint64 time);
    // The answer, or what stands in for it.
    [[nodiscard]] ConsentStatus status(ConsentKind kind) const;

    // The questions. Storage is not denied.
    [[nodiscard]] bool allowsStorage() const;
    // What the application logs may be kept and sent.
    [[nodiscard]] bool mayKeep() const { return allowsStorage() && !isPaused; }
    // The engine may make events by itself, catch crashes, and find out about audiences.
    [[nodiscard]] bool mayMeasure() const;
    // Somebody may be put into an audience that advertising is made for.
    [[nodiscard]] bool mayAdvertise() const;
    // What was found out for advertising may leave the machine.
    [[nodiscard]] bool maySendAdvertisingData() const;

    // As it is kept: JSON that has each answer with its time. What is there and makes no sense is a
    // no; the deployer's word is not kept.
    [[nodiscard]] QByteArray toJson() const;
    void read(const QByteArray& json);

    // Nothing is collected or sent, and nothing is erased.
    bool isPaused = false;
    // Something that was measured is to be gone, and is not yet.
    bool isErasureOwed = false;

    friend bool operator==(const Consent&, const Consent&) = default;

  private:
    std::array<Answer, kConsentKinds.size()> answers_;
    ConsentStatus deployed_;
};

}  // namespace pellumar
