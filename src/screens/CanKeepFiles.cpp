#include "screens/CanKeepFiles.h"

#include <QCoreApplication>

#include "platform/kit/UIAlertController.h"

namespace pellumar {

void CanKeepFiles::saveFiles(const ItemSaving::Order& order,
                             const std::function<void(const QList<QUrl>& saved)>& kept) {
    saving_ = ItemSaving::start(screen(),
                                services().documents,
                                order,
                                whileAlive([this, kept](const ItemSaving::Outcome& outcome) {
                                    if (!outcome.failure.isEmpty()) {
                                        showFailureAlert(outcome.failure);
                                    } else if (!outcome.saved.isEmpty() && kept) {
                                        kept(outcome.saved);
                                    }
                                }));
}

bool CanKeepFiles::stopSaving() {
    const bool isCopying = saving_ && saving_->isCopying();
    if (isCopying) {
        saving_.reset();
    }
    return isCopying;
}

void CanKeepFiles::askToKeep(const Farewell& farewell) {
    const auto alert =
        makeController<UIAlertController>(services().ui, farewell.title, farewell.message);
    // None is for Escape, which was perhaps pressed once too often.
    const QString keep = QCoreApplication::translate("CanKeepFiles", "Keep…");
    alert->addAction({keep, UIAlertActionStyle::kDefault, whileAlive(farewell.keep)});
    alert->addAction(
        {farewell.leaveTitle, UIAlertActionStyle::kDefault, whileAlive(farewell.leave)});
    if (farewell.stay) {
        alert->addAction({QCoreApplication::translate("CanKeepFiles", "Stay"),
                          UIAlertActionStyle::kDefault,
                          whileAlive(farewell.stay)});
    }
    screen().present(alert, true);
}

}  // namespace pellumar
