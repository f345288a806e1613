#include "platform/desktop/SKStoreReviewController.h"

#include "platform/desktop/SoftwareCentre.h"

namespace pellumar {
namespace {

constexpr int kMostShown = 3;
constexpr qint64 kDays = 365;
const QString kShown = QStringLiteral("ReviewsShown");

}  // namespace

void SKStoreReviewController::requestReview() {
    if (!hasStore_()) {
        return;
    }
    const QDateTime now = clock_();
    QVariantList recent;
    for (const QVariant& shown : memory_.value(kShown).toList()) {
        const qint64 days = shown.toDateTime().daysTo(now);
        if (days >= 0 && days < kDays) {
            recent.append(shown);
        }
    }
    if (recent.size() >= kMostShown) {
        return;
    }
    recent.append(now);
    memory_.setValue(kShown, recent);
    opener_.open(SoftwareCentre::page(QStringLiteral("org.pellumar.Zip")));
}

}  // namespace pellumar
