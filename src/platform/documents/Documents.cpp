#include "platform/documents/Documents.h"

void qml_register_types_Pellumar_Documents();

namespace pellumar {

void registerDocuments() {
    qml_register_types_Pellumar_Documents();
}

}  // namespace pellumar
