#pragma once

#include "platform/sharing/ActivityType.h"
#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Puts files on the clipboard, for file managers, editors and terminals alike.
class CopyTarget : public ShareTarget {
  public:
    CopyTarget() : ShareTarget({activity::kCopy, text("Copy"), QStringLiteral("copy")}) {}

    void perform(const QList<QUrl>& urls, const Done& done) override;
};

}  // namespace pellumar
