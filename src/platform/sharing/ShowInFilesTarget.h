#pragma once

#include "platform/kit/Notice.h"
#include "platform/sharing/ActivityType.h"
#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Shows files in the desktop's file manager: few are selected in their folder, of many only the
// folder is shown.
class ShowInFilesTarget : public ShareTarget {
  public:
    ShowInFilesTarget()
        : ShareTarget({activity::kShowInFiles, text("Show in files"), QStringLiteral("show")}) {}

    // A button of a notice that does it; one without handler, which no notice shows, if there are
    // no files or there is no file manager.
    [[nodiscard]] static Notice::Action noticeAction(const QList<QUrl>& urls);

    [[nodiscard]] bool canPerform(const ItemSummary& summary) const override;
    void perform(const QList<QUrl>& urls, const Done& done) override;
};

}  // namespace pellumar
