#pragma once

#include <QDateTime>
#include <QSettings>
#include <functional>
#include <utility>

#include "platform/StoreReview.h"
#include "platform/UrlOpener.h"

namespace pellumar {

// Opens the application's page in the software centre, at most three times in any 365 days, and
// only where one is installed.
class SKStoreReviewController : public StoreReview {
  public:
    using Clock = std::function<QDateTime()>;

    // `memory` holds the times at which it was shown; `hasStore` tells whether appstream: addresses
    // are opened here. All must outlive this.
    SKStoreReviewController(QSettings& memory,
                            UrlOpener& opener,
                            Clock clock,
                            std::function<bool()> hasStore)
        : memory_(memory),
          opener_(opener),
          clock_(std::move(clock)),
          hasStore_(std::move(hasStore)) {}

    void requestReview() override;

  private:
    QSettings& memory_;
    UrlOpener& opener_;
    const Clock clock_;
    const std::function<bool()> hasStore_;
};

}  // namespace pellumar
