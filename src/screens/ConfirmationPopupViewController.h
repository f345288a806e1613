#pragma once

#include <QPointer>
#include <QUrl>
#include <memory>

#include "platform/kit/UIViewController.h"
#include "screens/ConfirmationPopupDelegate.h"

namespace pellumar {

// Asks whether an archive that another application handed over is to be extracted. Layout outlet:
// "titleLabel".
class ConfirmationPopupViewController : public pellumar::UIViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")

  public:
    ConfirmationPopupViewController(const UIContext& context, QUrl url);

    // Held weakly; told when the popup has gone.
    void setDelegate(const std::weak_ptr<ConfirmationPopupDelegate>& delegate) {
        delegate_ = delegate;
    }

    Q_INVOKABLE void unzipTapped();
    Q_INVOKABLE void cancelTapped();

  protected:
    void viewDidLoad() override;

  private:
    QPointer<QQuickItem> titleLabel_;
    const QUrl url_;
    std::weak_ptr<ConfirmationPopupDelegate> delegate_;
};

}  // namespace pellumar
