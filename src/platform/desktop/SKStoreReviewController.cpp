#include "platform/desktop/SKStoreReviewController.h"

#include <QDir>
#include <QStandardPaths>

namespace pellumar {
namespace {

constexpr int kMostShown = 3;
constexpr qint64 kDays = 365;
const QString kShown = QStringLiteral("ReviewsShown");

}  // namespace

bool SKStoreReviewController::desktopHasStore() {
    const QString key = QStringLiteral("x-scheme-handler/appstream=");
    const QStringList lists = QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation,
                                                        QStringLiteral("mimeinfo.cache"));
    for (const QString& list : lists) {
        QFile file(list);
        if (file.open(QIODevice::ReadOnly) && file.readAll().contains(key.toLatin1())) {
            return true;
        }
    }
    return false;
}

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
    opener_.open(QUrl(QStringLiteral("appstream://org.pellumar.Zip")));
}

}  // namespace pellumar
