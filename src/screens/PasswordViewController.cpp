#include "screens/PasswordViewController.h"

#include <utility>

#include "platform/DisplayText.h"

namespace pellumar {

PasswordViewController::PasswordViewController(const UIContext& context,
                                               const QString& archiveName,
                                               std::shared_ptr<PasswordRequest> request,
                                               std::function<void()> fitted)
    : UIViewController(context),
      archiveName_(isolated(archiveName)),
      request_(std::move(request)),
      fitted_(std::move(fitted)),
      wasWrong_(request_->wasWrong()) {
    setModalTransitionStyle(UIModalTransitionStyle::kCrossDissolve);
}

void PasswordViewController::openTapped(const QString& password) {
    if (isTrying_ || password.isEmpty() || !transition().canLeave()) {
        return;
    }
    setState(true, false);
    request_->tryPassword(std::make_shared<const archive::Password>(password.toStdString()),
                          [self = weakly(this)](bool fits) {
                              if (const auto dialog = self.lock()) {
                                  dialog->takeReply(fits);
                              }
                          });
}

void PasswordViewController::takeReply(bool fits) {
    setState(false, !fits);
    if (fits) {
        dismissSelf(true);
        fitted_();
    }
}

void PasswordViewController::cancelTapped() {
    // At once: a password that is being tried may fit while the dialog leaves.
    if (dismissSelf(true)) {
        request_->giveUp();
    }
}

void PasswordViewController::edited() {
    setState(isTrying_, false);
}

bool PasswordViewController::goBack() {
    cancelTapped();
    return true;
}

void PasswordViewController::setState(bool isTrying, bool wasWrong) {
    if (isTrying_ != isTrying || wasWrong_ != wasWrong) {
        isTrying_ = isTrying;
        wasWrong_ = wasWrong;
        emit stateChanged();
    }
}

}  // namespace pellumar
