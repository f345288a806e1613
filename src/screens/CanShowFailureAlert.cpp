#include "screens/CanShowFailureAlert.h"

#include "platform/kit/UIAlertController.h"

namespace pellumar {

void CanShowFailureAlert::showFailureAlert(UIViewController& screen, const UIContext& context) {
    const auto alert = makeController<UIAlertController>(
        context, QStringLiteral("Error"), QStringLiteral("Could not complete the operation."));
    alert->addAction({QStringLiteral("OK"), UIAlertActionStyle::kDefault, {}});
    screen.present(alert, true);
}

}  // namespace pellumar
