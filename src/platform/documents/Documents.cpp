#include "platform/documents/Documents.h"

// Made by Qt's build tools, which name it.
void qml_register_types_Pellumar_Documents();  // NOLINT(readability-identifier-naming)

namespace pellumar {

void registerDocuments() {
    qml_register_types_Pellumar_Documents();
}

}  // namespace pellumar
