#pragma once

#include "engine/Remarks.h"
#include "platform/kit/UIViewController.h"

namespace pellumar {

// A sheet that lists what was odd about an archive that was opened all the same.
class RemarksViewController : public pellumar::UIViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(QString heading READ heading CONSTANT)
    Q_PROPERTY(QString introduction READ introduction CONSTANT)
    Q_PROPERTY(QStringList lines READ lines CONSTANT)

  public:
    RemarksViewController(const UIContext& context, Remarks remarks);

    // "1 remark", "2 remarks", or of a damaged archive that not all of it is there; empty if there
    // is nothing to be said.
    [[nodiscard]] static QString headingOf(const Remarks& remarks);

    // Puts the lines and their details on the clipboard.
    Q_INVOKABLE void copyTapped();
    Q_INVOKABLE void doneTapped() { dismissSelf(true); }

    [[nodiscard]] QString heading() const { return headingOf(remarks_); }
    [[nodiscard]] QString introduction() const;
    [[nodiscard]] QStringList lines() const { return remarks_.lines; }

  private:
    const Remarks remarks_;
};

}  // namespace pellumar
