#pragma once

#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Puts files on the clipboard, for file managers, editors and terminals alike.
class CopyTarget : public ShareTarget {
  public:
    [[nodiscard]] QString activityType() const override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString iconName() const override;
    [[nodiscard]] bool canPerform(const ItemSummary& summary) const override;
    void perform(const QList<QUrl>& urls, const Done& done) override;
};

}  // namespace pellumar
