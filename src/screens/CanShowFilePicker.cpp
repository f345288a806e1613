#include "screens/CanShowFilePicker.h"

namespace pellumar {

void CanShowFilePicker::showFilePicker() {
    const bool unzips = currentOperation() == OperationType::kUnzip;
    const QStringList types{unzips ? QStringLiteral("public.zip-archive")
                                   : QStringLiteral("public.item")};
    const auto picker = makeController<UIDocumentPickerViewController>(
        services().ui, services().documents, types, !unzips);
    picker->setDelegate(
        std::shared_ptr<UIDocumentPickerDelegate>(screen().shared_from_this(), this));
    screen().present(picker, true);
}

}  // namespace pellumar
