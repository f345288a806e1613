#include "screens/CanShowFailureAlert.h"

#include "platform/kit/UIAlertController.h"

namespace pellumar {

void CanShowFailureAlert::showFailureAlert() {
    showFailureAlert(QStringLiteral("Could not complete the operation."));
}

void CanShowFailureAlert::showFailureAlert(const QString& message) {
    const auto alert =
        makeController<UIAlertController>(services().ui, QStringLiteral("Error"), message);
    alert->addAction({QStringLiteral("OK"), UIAlertActionStyle::kDefault, {}});
    screen().present(alert, true);
}

}  // namespace pellumar
