#include "screens/CanShowFailureAlert.h"

#include <QCoreApplication>

namespace pellumar {
namespace {

class AlertWords {
    Q_DECLARE_TR_FUNCTIONS(AlertWords)
};

}  // namespace

void CanShowFailureAlert::showFailureAlert(const FailureReason& reason,
                                           const UIAlertAction& remedy) {
    showFailureAlert(AlertWords::tr("Could not complete the operation."),
                     {.text = reason.text, .details = reason.details, .remedy = remedy});
}

void CanShowFailureAlert::showFailureAlert(const QString& message, const AlertReason& reason) {
    const auto alert =
        makeController<UIAlertController>(services().ui, AlertWords::tr("Error"), message);
    alert->setReason(reason);
    alert->addAction({AlertWords::tr("OK"), UIAlertActionStyle::kDefault, {}});
    screen().present(alert, true);
}

}  // namespace pellumar
