#include "screens/CanShowFailureAlert.h"

#include "platform/kit/UIAlertController.h"

namespace pellumar {

void CanShowFailureAlert::showFailureAlert(const FailureReason& reason) {
    show(QStringLiteral("Could not complete the operation."), reason);
}

void CanShowFailureAlert::showFailureAlert(const QString& message) {
    show(message, {});
}

void CanShowFailureAlert::show(const QString& message, const FailureReason& reason) {
    const auto alert =
        makeController<UIAlertController>(services().ui, QStringLiteral("Error"), message);
    alert->setReason({reason.text, reason.details});
    alert->addAction({QStringLiteral("OK"), UIAlertActionStyle::kDefault, {}});
    screen().present(alert, true);
}

}  // namespace pellumar
