#include "platform/sharing/Sharing.h"

void qml_register_types_Pellumar_Sharing();

namespace pellumar {

void registerSharing() {
    qml_register_types_Pellumar_Sharing();
}

}  // namespace pellumar
