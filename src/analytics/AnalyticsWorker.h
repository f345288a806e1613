#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <memory>
#include <optional>
#include <stop_token>

#include "analytics/AnalyticsEnvironment.h"
#include "analytics/AnalyticsStore.h"
#include "analytics/Consent.h"
#include "analytics/CrashMarker.h"
#include "analytics/Intake.h"
#include "analytics/MeasurementFolder.h"
#include "analytics/Recorder.h"
#include "analytics/Uploader.h"

namespace pellumar {

// What the engine's thread does, again and again: obeys the consent, has recorded what was
// accepted, has sent what is due, and sleeps.
class AnalyticsWorker {
  public:
    // From when the end is asked for; the rest of 200 ms is for cleaning up.
    static constexpr std::chrono::milliseconds kLongestFarewell{150};

    // All must outlive this. `marker` may be null.
    AnalyticsWorker(const AnalyticsEnvironment& environment, Intake& intake, CrashMarker* marker);

    // Works until `stop` is requested; what was said before that is recorded first.
    void run(const std::stop_token& stop);

  private:
    // True if there is more to do at once.
    bool work();
    void sleep(QEventLoop& loop);
    void sayFarewell(QEventLoop& loop, const QDeadlineTimer& deadline);

    void learnConsent();
    // Writes down what was answered, and erases what has to be gone. False if something is left.
    [[nodiscard]] bool obey(const Intake::Work& work);
    [[nodiscard]] bool erase();

    // False if it could not be written.
    [[nodiscard]] bool record(Intake::Work& work);
    // What is due at the beginning, under another consent, and every day.
    [[nodiscard]] DatabaseOutcome upkeep();
    [[nodiscard]] DatabaseOutcome tellStart();
    void followAudiences();
    void recover(DatabaseOutcome outcome);
    [[nodiscard]] bool openStore(const Intake::Work& work);
    void closeStore();

    // Reads the consent once more: recording may have taken a while.
    [[nodiscard]] bool maySend();
    [[nodiscard]] Uploader::Situation situation() const;
    [[nodiscard]] Recorder::Rules rules() const { return {.consent = consent_, .config = config_}; }
    void readConfig();

    const AnalyticsEnvironment& environment_;
    Intake& intake_;
    CrashMarker* const marker_;
    MeasurementFolder folder_;
    MeasurementConfig config_;
    std::optional<qint64> configRead_;
    // As of the piece of work at hand, and as it is on disk; nothing as long as it is not known.
    Consent consent_;
    std::optional<Consent> saved_;
    // Something could not be done that is to be tried again.
    bool isStuck_ = false;
    qint64 lastActivity_ = 0;

    std::unique_ptr<LogTransport> transport_;
    std::unique_ptr<AnalyticsStore> store_;
    std::unique_ptr<Recorder> recorder_;
    std::unique_ptr<Uploader> uploader_;
    // Of the store that is open: when upkeep was last done, and whether automatic events were
    // allowed then.
    std::optional<qint64> lastUpkeep_;
    bool measured_ = false;
    bool isStartTold_ = false;
    // A store was open before; what it held was erased or damaged.
    bool wasOpen_ = false;
    bool isReplaced_ = false;
};

}  // namespace pellumar
