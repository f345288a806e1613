#pragma once

#include <vector>

#include "analytics/AnalyticsStore.h"
#include "analytics/Audience.h"
#include "analytics/ConsentState.h"

namespace pellumar {

// Finds out which audiences the user is in.
class Audiences {
  public:
    // The user came in or left.
    struct Change {
        QString audience;
        bool member = false;

        friend bool operator==(const Change&, const Change&) = default;
    };

    explicit Audiences(std::vector<Audience> declared) : declared_(std::move(declared)) {}

    // Within a transaction: holds all conditions against the store, keeps what has changed together
    // with the user properties, and tells it. Audiences that are declared no more are left.
    [[nodiscard]] std::vector<Change> evaluate(AnalyticsStore& store,
                                               const Consent& consent,
                                               qint64 time,
                                               qint64 today) const;

  private:
    std::vector<Audience> declared_;
};

}  // namespace pellumar
