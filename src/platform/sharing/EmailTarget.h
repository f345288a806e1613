#pragma once

#include "platform/sharing/ActivityType.h"
#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Attaches files to a new message: through the desktop portal, or with xdg-email where there is
// none. Folders cannot be attached.
class EmailTarget : public ShareTarget {
  public:
    EmailTarget() : ShareTarget({activity::kMail, text("Email"), QStringLiteral("email")}) {}

    [[nodiscard]] bool canPerform(const ItemSummary& summary) const override;
    void perform(const QList<QUrl>& urls, const Done& done) override;
};

}  // namespace pellumar
