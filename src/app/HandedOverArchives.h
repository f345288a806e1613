#pragma once

#include <QObject>
#include <QTimer>
#include <QUrl>
#include <deque>
#include <memory>

#include "app/AppDelegate.h"
#include "platform/DispatchQueue.h"

namespace pellumar {

// Stands in front of the one slot for a handed-over archive, in which a later one replaces an
// earlier one: holds what other programs and the command line hand over, and passes it on in the
// order given, each when nobody is being asked about another. So each is asked about once, however
// many come at once and whatever is on the screen. What the application does not take is told to
// the user in words, in its turn: which file, what is the matter with it, what one can do. Only if
// finding that out takes longer than a second, what comes behind goes first. An archive that is
// not there is taken like any other, and fails when it is confirmed.
//
// Before the first screen is shown, the first archive goes into the slot. For the main thread; all
// that it is made with must outlive it.
class HandedOverArchives : public QObject {
    Q_OBJECT

  public:
    struct Environment {
        AppDelegate& delegate;
        UIWindow& window;
        UIContext ui;
        DispatchQueue& mainQueue;
        // For looks at the user's folders, which may hang.
        DispatchQueue& backgroundQueue;
    };

    explicit HandedOverArchives(const Environment& environment);

    void add(const QList<QUrl>& urls);

  private:
    // Passes on what waits, as long as it is nobody else's turn.
    void passOn();
    [[nodiscard]] bool isFree() const;
    void findWordsFor(const QUrl& url);
    void tell(const QString& words);

    const Environment environment_;
    // A file, or if that was refused, what is to be said of it.
    struct Waiting {
        QUrl url;
        QString words;
    };
    std::deque<Waiting> waiting_;
    // What is being looked at, and keeps its place for as long as the timer runs.
    QUrl refused_;
    QTimer patience_;
    std::weak_ptr<UIViewController> told_;
};

}  // namespace pellumar
