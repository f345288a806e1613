#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <deque>
#include <optional>

#include "app/AppDelegate.h"
#include "platform/FolderQueue.h"
#include "platform/kit/Notice.h"

namespace pellumar {

// Stands in front of the one slot for a handed-over archive, in which a later one replaces an
// earlier one: holds what other programs and the command line hand over, and passes it on in the
// order given, each when the window is idle. So each is asked about once, however many come at once
// and whatever is on the screen; a notice says that it waits. What is not there, or the application
// does not take, is told to the user in words instead, in its turn: which file, what is the matter
// with it, what one can do.
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
        FolderQueue& folders;
    };

    explicit HandedOverArchives(const Environment& environment);

    void add(const QList<QUrl>& urls);

  private:
    // Passes on what waits, as long as it is nobody else's turn.
    void passOn();
    [[nodiscard]] bool isFree() const;
    // Looks whether the next is there. Before there is a screen it waits for the answer, if only
    // for a moment.
    void lookAtNext();
    void looked(int look, const QString& words);
    void sayThatTheyWait();
    void tell(const QString& words);

    const Environment environment_;
    struct Waiting {
        QUrl url;
        // Why it cannot be opened; empty if it seems to be there, none before it was looked at.
        std::optional<QString> words = std::nullopt;
    };
    std::deque<Waiting> waiting_;
    // What says so; it would come back when it is no longer true.
    QPointer<Notice> saidToWait_;
    // Runs while the next is being looked at.
    QTimer patience_;
    // The number of the look that counts.
    int looks_ = 0;
};

}  // namespace pellumar
