#pragma once

#include <memory>

#include "platform/sharing/ActivityType.h"
#include "platform/sharing/ItemSaving.h"
#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Saves into a folder that the user chooses. One for each share sheet, over which it asks; saving
// stops when it goes.
class SaveToTarget : public ShareTarget {
  public:
    SaveToTarget(std::weak_ptr<UIViewController> sheet,
                 const UIContext& context,
                 const DocumentServices& documents)
        : ShareTarget({activity::kSaveTo, text("Save to…"), QStringLiteral("save")}),
          sheet_(std::move(sheet)),
          context_(context),
          documents_(documents) {}

    [[nodiscard]] bool isReadLater() const override { return false; }
    void perform(const QList<QUrl>& urls, const Done& done) override;

  private:
    const std::weak_ptr<UIViewController> sheet_;
    const UIContext context_;
    const DocumentServices documents_;
    std::shared_ptr<ItemSaving> saving_;
};

}  // namespace pellumar
