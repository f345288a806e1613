#include "screens/CanShowFailureAlert.h"

namespace pellumar {

void CanShowFailureAlert::showFailureAlert(const FailureReason& reason,
                                           const UIAlertAction& remedy) {
    showFailureAlert(QStringLiteral("Could not complete the operation."),
                     {.text = reason.text, .details = reason.details, .remedy = remedy});
}

void CanShowFailureAlert::showFailureAlert(const QString& message, const AlertReason& reason) {
    const auto alert =
        makeController<UIAlertController>(services().ui, QStringLiteral("Error"), message);
    alert->setReason(reason);
    alert->addAction({QStringLiteral("OK"), UIAlertActionStyle::kDefault, {}});
    screen().present(alert, true);
}

}  // namespace pellumar
