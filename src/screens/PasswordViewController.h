#pragma once

#include <QString>
#include <memory>

#include "engine/PasswordRequest.h"
#include "platform/kit/UIViewController.h"

namespace pellumar {

// Asks for the password of an archive, until one fits or the user gives up. Escape gives up.
class PasswordViewController : public pellumar::UIViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(QString archiveName READ archiveName CONSTANT)
    // A password is tried just now.
    Q_PROPERTY(bool isTrying READ isTrying NOTIFY stateChanged)
    // The one that was tried last does not fit.
    Q_PROPERTY(bool wasWrong READ wasWrong NOTIFY stateChanged)

  public:
    // `fitted` is called once a password fits, before this has gone.
    PasswordViewController(const UIContext& context,
                           const QString& archiveName,
                           std::shared_ptr<PasswordRequest> request,
                           std::function<void()> fitted);

    Q_INVOKABLE void openTapped(const QString& password);
    Q_INVOKABLE void cancelTapped();
    // What was typed since is another one.
    Q_INVOKABLE void edited();
    bool goBack() override;

    [[nodiscard]] QString archiveName() const { return archiveName_; }
    [[nodiscard]] bool isTrying() const { return isTrying_; }
    [[nodiscard]] bool wasWrong() const { return wasWrong_; }

  signals:
    void stateChanged();

  private:
    void setState(bool isTrying, bool wasWrong);
    void takeReply(bool fits);

    const QString archiveName_;
    const std::shared_ptr<PasswordRequest> request_;
    const std::function<void()> fitted_;
    bool isTrying_ = false;
    bool wasWrong_;
};

}  // namespace pellumar
