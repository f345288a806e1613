#include "platform/desktop/SKStoreReviewController.h"

#include "platform/desktop/SoftwareCentre.h"

namespace pellumar {
namespace {

constexpr int kMostAsked = 3;
constexpr qint64 kYearDays = 365;
constexpr qint64 kPauseDays = 120;
const QString kAsked = QStringLiteral("ReviewsShown");
const QString kRated = QStringLiteral("ReviewGiven");

}  // namespace

void SKStoreReviewController::requestReview() {
    if (hasStore_() && mayAsk()) {
        prompt_.ask([this](bool wantsToRate) { take(wantsToRate); });
    }
}

bool SKStoreReviewController::mayAsk() const {
    if (memory_.value(kRated).toBool()) {
        return false;
    }
    const QDateTime now = clock_();
    int asked = 0;
    for (const QVariant& time : memory_.value(kAsked).toList()) {
        const qint64 days = time.toDateTime().daysTo(now);
        // A clock that was set back says nothing.
        if (days >= 0 && days < kPauseDays) {
            return false;
        }
        asked += days >= 0 && days < kYearDays ? 1 : 0;
    }
    return asked < kMostAsked;
}

void SKStoreReviewController::take(bool wantsToRate) {
    QVariantList asked = memory_.value(kAsked).toList();
    asked.append(clock_());
    memory_.setValue(kAsked, asked.mid(std::max<qsizetype>(0, asked.size() - kMostAsked)));
    if (wantsToRate) {
        memory_.setValue(kRated, true);
        opener_.open(SoftwareCentre::page(QStringLiteral("org.pellumar.Zip")));
    }
}

}  // namespace pellumar
