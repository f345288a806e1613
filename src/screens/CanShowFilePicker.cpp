#include "screens/CanShowFilePicker.h"

namespace pellumar {

void CanShowFilePicker::showFilePicker(UIViewController& screen,
                                       const UIContext& context,
                                       const DocumentServices& documents,
                                       const std::weak_ptr<UIDocumentPickerDelegate>& delegate) {
    const bool unzips = currentOperation() == OperationType::kUnzip;
    const QStringList types{unzips ? QStringLiteral("public.zip-archive")
                                   : QStringLiteral("public.item")};
    const auto picker =
        makeController<UIDocumentPickerViewController>(context, documents, types, !unzips);
    picker->setDelegate(delegate);
    screen.present(picker, true);
}

}  // namespace pellumar
