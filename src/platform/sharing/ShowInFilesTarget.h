#pragma once

#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Shows files in the desktop's file manager.
class ShowInFilesTarget : public ShareTarget {
  public:
    [[nodiscard]] QString activityType() const override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString iconName() const override;
    [[nodiscard]] bool canPerform(const QList<QUrl>& urls) const override;
    void perform(const QList<QUrl>& urls, const Done& done) override;
};

}  // namespace pellumar
