#pragma once

#include <QEventLoop>
#include <memory>
#include <optional>
#include <vector>

#include "analytics/AnalyticsEnvironment.h"
#include "analytics/Intake.h"
#include "analytics/Ledger.h"
#include "analytics/MeasurementFolder.h"
#include "platform/crashes/CrashMarker.h"

namespace pellumar {

// What the engine's thread does, again and again: obeys the consent, has recorded what was
// accepted, has sent what is due, and sleeps.
class AnalyticsLoop {
  public:
    // From when the end is asked for; the rest of 200 ms is for cleaning up.
    static constexpr std::chrono::milliseconds kLongestFarewell{150};

    // All must outlive this. `marker` may be null.
    AnalyticsLoop(const AnalyticsEnvironment& environment, Intake& intake, CrashMarker* marker);

    // Works until the end of the intake; what was said before that is recorded first.
    void run();

  private:
    // True if there is more to do at once.
    bool work();
    void sleep();
    void sayFarewell();
    // Or until so much time has passed.
    void waitForEvent(qint64 milliseconds);

    // False as long as it is not known.
    [[nodiscard]] bool knowsConsent();
    // Takes the answers out of what was said, and what they forbid.
    void sift();
    // Writes down what was answered, and erases what has to be gone. False if something is left.
    [[nodiscard]] bool obey();
    [[nodiscard]] bool save();
    // Reads the consent once more: recording may have taken a while.
    [[nodiscard]] Uploader* mayUse();
    [[nodiscard]] qint64 idleIn() const;
    void readConfig();

    const AnalyticsEnvironment& environment_;
    Intake& intake_;
    CrashMarker* const marker_;
    QEventLoop loop_;
    MeasurementFolder folder_;
    const std::unique_ptr<HttpTransport> transport_;
    // Up to what was said last of what is in hand.
    Rules rules_;
    std::optional<qint64> configRead_;
    // As it is on disk; nothing as long as it is not known.
    std::optional<Consent> saved_;
    // What was said and is not sifted yet, and what is and not stored yet.
    std::vector<Accepted> said_;
    Intake::Work work_;
    Ledger ledger_;
    // Something could not be done that is to be tried again.
    bool isStuck_ = false;
    // In so many milliseconds.
    qint64 retry_ = 0;
    qint64 lastActivity_;
};

}  // namespace pellumar
