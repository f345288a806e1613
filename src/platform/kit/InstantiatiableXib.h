#pragma once

#include <QtQml/qqmlregistration.h>

#include "platform/kit/InstantiatiableXibProtocol.h"
#include "platform/kit/ViewHost.h"

namespace pellumar {

// The base of views that sit in another layout and have one of their own, which is named after
// their class. The content is there when the layout around them is complete.
class InstantiatiableXib : public pellumar::ViewHost, public InstantiatiableXibProtocol {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Only what derives from it has a layout")

  public:
    [[nodiscard]] QQuickItem* view() const override { return view_.get(); }
    void setView(OwnedItem view) override { view_ = std::move(view); }

  protected:
    // Made by a layout only: what has none cannot load another.
    InstantiatiableXib() = default;

    [[nodiscard]] QQuickItem& host() override { return *this; }
    void componentComplete() override;
    // Called once, when the content has been loaded.
    virtual void awakeFromNib() {}

  private:
    OwnedItem view_;
};

}  // namespace pellumar
