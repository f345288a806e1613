#pragma once

#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Opens one file in another application: through the desktop portal, which lets the user choose,
// or in the application that the desktop has for its type.
class OpenWithTarget : public ShareTarget {
  public:
    [[nodiscard]] QString activityType() const override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString iconName() const override;
    [[nodiscard]] bool canPerform(const ItemSummary& summary) const override;
    void perform(const QList<QUrl>& urls, const Done& done) override;
};

}  // namespace pellumar
