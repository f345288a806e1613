#include "screens/ConfirmationPopupViewController.h"

#include <utility>

#include "platform/DisplayText.h"
#include "platform/FileUrl.h"

namespace pellumar {

ConfirmationPopupViewController::ConfirmationPopupViewController(const UIContext& context, QUrl url)
    : UIViewController(context), url_(std::move(url)) {
    setModalTransitionStyle(UIModalTransitionStyle::kCrossDissolve);
}

void ConfirmationPopupViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    titleLabel_ = outlet<QQuickItem>(view(), QStringLiteral("titleLabel"));
    titleLabel_->setProperty("text",
                             tr("Do you want to unzip %1?").arg(isolated(lastPathComponent(url_))));
}

void ConfirmationPopupViewController::unzipTapped() {
    dismissSelf(true, [self = weakly(this)] {
        const auto popup = self.lock();
        const auto delegate = popup ? popup->delegate_.lock() : nullptr;
        if (delegate) {
            delegate->didConfirmUnzip(popup->url_);
        }
    });
}

void ConfirmationPopupViewController::cancelTapped() {
    dismissSelf(true);
}

}  // namespace pellumar
