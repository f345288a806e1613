#pragma once

#include "platform/sharing/ActivityType.h"
#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Opens one file in another application: through the desktop portal, which lets the user choose,
// or in the application that the desktop has for its type.
class OpenWithTarget : public ShareTarget {
  public:
    OpenWithTarget()
        : ShareTarget({activity::kOpenWith, text("Open with…"), QStringLiteral("open")}) {}

    [[nodiscard]] bool canPerform(const ItemSummary& summary) const override;
    void perform(const QList<QUrl>& urls, const Done& done) override;
};

}  // namespace pellumar
