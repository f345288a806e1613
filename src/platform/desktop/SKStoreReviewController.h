#pragma once

#include <QDateTime>
#include <QSettings>
#include <functional>
#include <utility>

#include "platform/StoreReview.h"
#include "platform/UrlOpener.h"
#include "platform/desktop/ReviewPrompt.h"

namespace pellumar {

// Asks whether the user wants to rate the application, and opens its page in the software centre
// for who does. Only where there is one; not within 120 days of the last answer, not more than
// three times in any 365 days, and never again once the user went there.
class SKStoreReviewController : public StoreReview {
  public:
    using Clock = std::function<QDateTime()>;

    // `memory` holds when it was answered, and how; `hasStore` tells whether there is a software
    // centre. All must outlive this, and this the prompt's last answer.
    SKStoreReviewController(QSettings& memory,
                            ReviewPrompt& prompt,
                            UrlOpener& opener,
                            Clock clock,
                            std::function<bool()> hasStore)
        : memory_(memory),
          prompt_(prompt),
          opener_(opener),
          clock_(std::move(clock)),
          hasStore_(std::move(hasStore)) {}

    void requestReview() override;

  private:
    [[nodiscard]] bool mayAsk() const;
    void take(bool wantsToRate);

    QSettings& memory_;
    ReviewPrompt& prompt_;
    UrlOpener& opener_;
    const Clock clock_;
    const std::function<bool()> hasStore_;
};

}  // namespace pellumar
