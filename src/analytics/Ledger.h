#pragma once

#include <memory>

#include "analytics/AnalyticsEnvironment.h"
#include "analytics/Intake.h"
#include "analytics/Recorder.h"
#include "analytics/Uploader.h"

namespace pellumar {

// The store of a folder that is held, from its making to its erasure, with what is recorded in it
// and sent from it. Open while there is something in it or to be kept. One thread at a time.
class Ledger {
  public:
    // All must outlive this. Without a transport nothing is sent.
    Ledger(const AnalyticsEnvironment& environment, const Rules& rules, HttpTransport* transport);

    // False if it could not be written.
    [[nodiscard]] bool record(const Intake::Work& work);
    // Removes what was recorded, and the marker of a crash. False if something is left.
    [[nodiscard]] bool erase();
    // Breaks off what is being sent.
    void stopSending();
    // Closes a store that cannot be used, and removes one that is damaged.
    void recover(DatabaseOutcome outcome);

    // Crashes may be caught: what was known of the last is told.
    [[nodiscard]] bool isStartTold() const { return store_ && recorder_.isStartTold(); }
    // Null while no store is open, and where nothing is sent.
    [[nodiscard]] Uploader* uploader() { return uploader_.get(); }
    // From here on nothing waits for the disk.
    void hurry();

  private:
    [[nodiscard]] DatabaseOutcome open();
    void close();

    const AnalyticsEnvironment& environment_;
    const Rules& rules_;
    HttpTransport* const transport_;
    Recorder recorder_;
    std::unique_ptr<AnalyticsStore> store_;
    std::unique_ptr<Uploader> uploader_;
    // The store before it was erased or damaged.
    bool isReplaced_ = false;
};

}  // namespace pellumar
