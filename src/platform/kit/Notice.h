#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QTimer>
#include <chrono>
#include <functional>

#include "platform/kit/UIViewController.h"

namespace pellumar {

// A short word at the lower edge of the window that something is done: "Copied", or "Saved 12 files
// to Holiday" with a button "Show in files". It belongs to the window and lies above every layer,
// so it outlives the sheet or the screen that showed it; it takes the keyboard from nobody and
// covers nothing but its own place. What is presented later is not covered at all: the notice waits
// until that has gone. It is for good news: what the user must answer is an alert.
//
//     Notice::show(*window(), tr("Copied"));
//
// For the main thread.
class Notice : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(QString text READ text CONSTANT)
    // The button's title; empty if there is none.
    Q_PROPERTY(QString actionTitle READ actionTitle CONSTANT)
    // How far it has come into view.
    Q_PROPERTY(qreal presence READ presence NOTIFY presenceChanged)

  public:
    // A button that closes the notice and then does something. The handler may outlive the screen
    // that showed the notice, and holds it weakly.
    struct Action {
        QString title;
        std::function<void()> handler;
    };
    // How long it stays: for a moment, longer with a button, and never while the pointer rests on
    // it or the keyboard is in it; or until the user closes it, for what must not be missed.
    enum class Stay { kForAMoment, kUntilClosed };

    // Shows a notice in `window`, in place of the one that is there: that is closed, or if only the
    // user closes it, comes back when this one has gone. It goes with the window.
    static void show(UIWindow& window,
                     const QString& text,
                     Action action = {},
                     Stay stay = Stay::kForAMoment);
    // Puts a text on the clipboard and says so, in the window if there is one.
    static void copy(UIWindow* window, const QString& text);
    // The one that is there; null if there is none, or it is going.
    [[nodiscard]] static Notice* shownIn(const UIWindow& window);

    // A tap on the notice, or on its button.
    Q_INVOKABLE void close();
    Q_INVOKABLE void act();
    // Whether the user is at it: it stays as long.
    Q_INVOKABLE void setHeld(bool isHeld);

    [[nodiscard]] const QString& text() const { return text_; }
    [[nodiscard]] const QString& actionTitle() const { return action_.title; }
    [[nodiscard]] qreal presence() const { return transition_.presence(); }
    [[nodiscard]] QQuickItem* item() const { return item_.get(); }

  signals:
    void presenceChanged();

  private:
    Notice(UIWindow& window, QString text, Action action, Stay stay);

    void appear();
    // Whether something is presented that was not when this came, or a later notice is there.
    [[nodiscard]] bool mustWait() const;
    void waitOrComeBack();
    void releaseKeyboard() const;

    UIWindow& window_;
    const QString text_;
    const Action action_;
    const Stay stay_;
    Transition transition_;
    OwnedItem item_;
    // The topmost screen's view when this came.
    QPointer<QQuickItem> over_;
    QTimer time_;
};

}  // namespace pellumar
