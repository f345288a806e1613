#pragma once

#include "analytics/StateTable.h"

namespace pellumar {

// Whether the wall clock is to be believed when it says that much time has passed. One that
// somebody has set to another year would have everything expire at once. So it is believed only
// when it has gone on for a day without a leap: back, or forward by more than a month.
class ClockWitness {
  public:
    static constexpr qint64 kLongestGap = 30LL * 24 * 60 * 60 * 1000;
    static constexpr qint64 kProbation = 24LL * 60 * 60 * 1000;

    // `state` must outlive this.
    explicit ClockWitness(StateTable& state) : state_(state) {}

    // Within a transaction, to be called now and then: keeps the time, in milliseconds since 1970
    // in UTC, and tells whether it is believed.
    [[nodiscard]] bool confirms(qint64 now);

  private:
    StateTable& state_;
};

}  // namespace pellumar
