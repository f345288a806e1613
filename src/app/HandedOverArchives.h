#pragma once

#include <QObject>
#include <QPointer>
#include <QUrl>
#include <deque>

#include "app/AppDelegate.h"
#include "platform/kit/Notice.h"

namespace pellumar {

// Stands in front of the one slot for a handed-over archive, in which a later one replaces an
// earlier one: holds what other programs and the command line hand over, and passes it on in the
// order given, each when the window is idle. So each is asked about once, however many come at once
// and whatever is on the screen; a notice says that it waits. What the application does not take is
// told to the user in words instead, in its turn: which file, what is the matter with it, what one
// can do.
//
// Before the first screen is shown, the first archive that is taken goes into the slot. For the
// main thread; all that it is made with must outlive it.
class HandedOverArchives : public QObject {
    Q_OBJECT

  public:
    HandedOverArchives(AppDelegate& delegate, UIWindow& window);

    void add(const QList<QUrl>& urls);

  private:
    // Passes on what waits, as long as it is nobody else's turn.
    void passOn();
    [[nodiscard]] bool isFree() const;
    void fillSlotAtStart();
    void sayThatTheyWait();
    void tell(const QString& words);

    AppDelegate& delegate_;
    UIWindow& window_;
    std::deque<QUrl> waiting_;
    // What says so; it would come back when it is no longer true.
    QPointer<Notice> saidToWait_;
};

}  // namespace pellumar
