#pragma once

#include <QList>
#include <QUrl>
#include <functional>
#include <memory>

#include "platform/sharing/ItemSaving.h"
#include "screens/CanShowFailureAlert.h"

namespace pellumar {

// A screen with files that go by themselves, and that the user can save.
class CanKeepFiles : public CanShowFailureAlert {
  protected:
    // Lets the user choose where to save; a failure is told. `kept` learns where the files are, if
    // they were saved; may be empty.
    void saveFiles(const ItemSaving::Order& order,
                   const std::function<void(const QList<QUrl>& saved)>& kept);

    // Lets go of what is being copied, if anything is: what it has left is taken back, and nobody
    // is told. False if nothing is.
    [[nodiscard]] bool stopSaving();

    // An alert that says that nothing was kept, and when it goes: one button is for keeping it, one
    // for letting it go; one for neither, if there is a `stay`.
    struct Farewell {
        QString title;
        QString message;
        std::function<void()> keep;
        QString leaveTitle;
        std::function<void()> leave;
        std::function<void()> stay = {};
    };
    void askToKeep(const Farewell& farewell);

  private:
    std::shared_ptr<ItemSaving> saving_;
};

}  // namespace pellumar
