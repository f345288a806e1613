#include "platform/sharing/Sharing.h"

// Made by Qt's build tools, which name it.
void qml_register_types_Pellumar_Sharing();  // NOLINT(readability-identifier-naming)

namespace pellumar {

void registerSharing() {
    qml_register_types_Pellumar_Sharing();
}

}  // namespace pellumar
