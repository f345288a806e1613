#pragma once

#include <memory>

#include "engine/OperationType.h"
#include "platform/documents/UIDocumentPickerViewController.h"
#include "platform/kit/UIViewController.h"

namespace pellumar {

// A screen that lets the user pick what its current operation takes.
class CanShowFilePicker : public UIDocumentPickerDelegate {
  public:
    [[nodiscard]] virtual OperationType currentOperation() const = 0;

  protected:
    // Presents the picker on `screen`, which is this: for one archive, or for any files. The
    // application gets copies.
    void showFilePicker(UIViewController& screen,
                        const UIContext& context,
                        const DocumentServices& documents,
                        const std::weak_ptr<UIDocumentPickerDelegate>& delegate);
};

}  // namespace pellumar
