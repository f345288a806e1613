#pragma once

#include "engine/OperationType.h"
#include "platform/documents/UIDocumentPickerViewController.h"
#include "screens/ScreenAbility.h"

namespace pellumar {

// A screen that lets the user pick what its current operation takes.
class CanShowFilePicker : public UIDocumentPickerDelegate, public virtual ScreenAbility {
  public:
    [[nodiscard]] virtual OperationType currentOperation() const = 0;

  protected:
    // Presents the picker: for one archive, or for any files. The application gets copies.
    void showFilePicker();
};

}  // namespace pellumar
