#pragma once

#include "platform/kit/Notice.h"
#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Shows files in the desktop's file manager: few are selected in their folder, of many only the
// folder is shown.
class ShowInFilesTarget : public ShareTarget {
  public:
    // A button of a notice that does it; one without handler, which no notice shows, if there are
    // no files or there is no file manager.
    [[nodiscard]] static Notice::Action noticeAction(const QList<QUrl>& urls);

    [[nodiscard]] QString activityType() const override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString iconName() const override;
    [[nodiscard]] bool canPerform(const ItemSummary& summary) const override;
    void perform(const QList<QUrl>& urls, const Done& done) override;
};

}  // namespace pellumar
