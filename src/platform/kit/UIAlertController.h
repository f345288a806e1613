#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <limits>
#include <optional>

#include "platform/kit/UIViewController.h"

namespace pellumar {

enum class UIAlertActionStyle { kDefault, kCancel };

struct UIAlertAction {
    QString title;
    UIAlertActionStyle style = UIAlertActionStyle::kDefault;
    std::function<void()> handler;
};

// What a text field takes. It leaves out the characters that it does not take, and what goes beyond
// its bytes of UTF-8, and says so with a hint.
struct TextFieldRule {
    QString refused;
    QString refusedHint;
    qsizetype mostBytes = std::numeric_limits<qsizetype>::max();
    QString lengthHint;
};

// A second field that need not be filled: hidden behind a button, and typed without being seen.
struct SecretField {
    QString offer;  // the button's words
    QString placeholder;
    QString note;  // stands below the field
};

struct AlertReason {
    QString text;
    QString details;
    // Something to be done about it, which closes the dialog as well; without a title there is
    // nothing.
    UIAlertAction remedy = {};
};

// A dialog with a title, a message, at most one text field and one for a secret, and buttons that
// all close it. A button's handler is called when the dialog has gone. Escape chooses the
// cancelling button, or the only one.
class UIAlertController : public pellumar::UIViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(QString alertTitle READ alertTitle CONSTANT)
    Q_PROPERTY(QString message READ message CONSTANT)
    Q_PROPERTY(QString reason READ reason CONSTANT)
    Q_PROPERTY(QString remedy READ remedy CONSTANT)
    Q_PROPERTY(QStringList actionTitles READ actionTitles CONSTANT)
    Q_PROPERTY(int cancelIndex READ cancelIndex CONSTANT)
    Q_PROPERTY(bool hasTextField READ hasTextField CONSTANT)
    Q_PROPERTY(QString placeholder READ placeholder CONSTANT)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    // Why some of what was typed last is not in the field; empty if all of it is.
    Q_PROPERTY(QString hint READ hint NOTIFY textChanged)
    Q_PROPERTY(QString secretOffer READ secretOffer CONSTANT)
    Q_PROPERTY(QString secretPlaceholder READ secretPlaceholder CONSTANT)
    Q_PROPERTY(QString secretNote READ secretNote CONSTANT)
    Q_PROPERTY(QString secret READ secret WRITE setSecret NOTIFY secretChanged)

  public:
    UIAlertController(const UIContext& context, QString title, QString message);

    // Before the view is loaded.
    void addTextField(const QString& placeholder, TextFieldRule rule = {});
    // What lies behind the message: words of its own beneath it, and what its button copies.
    // Without a text there is none.
    void setReason(AlertReason reason) { reason_ = std::move(reason); }
    // Before the view is loaded.
    void offerSecret(SecretField field) { secretField_ = std::move(field); }
    void addAction(UIAlertAction action) { actions_.append(std::move(action)); }

    // What the text field holds; nothing if there is none.
    [[nodiscard]] std::optional<QString> textFieldText() const;

    Q_INVOKABLE void choose(int index);
    // Puts the reason and its details on the clipboard.
    Q_INVOKABLE void copyReason() const;
    Q_INVOKABLE void chooseRemedy() { dismissSelf(true, reason_.remedy.handler); }
    bool goBack() override;

    [[nodiscard]] QString alertTitle() const { return title_; }
    [[nodiscard]] QString message() const { return message_; }
    [[nodiscard]] QString reason() const { return reason_.text; }
    [[nodiscard]] QString remedy() const { return reason_.remedy.title; }
    [[nodiscard]] QStringList actionTitles() const;
    // The position of the cancelling button, -1 if there is none.
    [[nodiscard]] int cancelIndex() const;
    [[nodiscard]] bool hasTextField() const { return placeholder_.has_value(); }
    [[nodiscard]] QString placeholder() const { return placeholder_.value_or(QString()); }
    [[nodiscard]] QString text() const { return text_; }
    [[nodiscard]] QString hint() const { return hint_; }
    void setText(const QString& text);
    [[nodiscard]] QString secretOffer() const { return secretField_.offer; }
    [[nodiscard]] QString secretPlaceholder() const { return secretField_.placeholder; }
    [[nodiscard]] QString secretNote() const { return secretField_.note; }
    // Empty if none was given.
    [[nodiscard]] QString secret() const { return secret_; }
    void setSecret(const QString& secret);

  signals:
    void textChanged();
    void secretChanged();

  private:
    const QString title_;
    const QString message_;
    AlertReason reason_;
    std::optional<QString> placeholder_;
    TextFieldRule rule_;
    QString text_;
    QString hint_;
    SecretField secretField_;
    QString secret_;
    QList<UIAlertAction> actions_;
};

}  // namespace pellumar
