#include "platform/kit/Kit.h"


void qml_register_types_Pellumar_Kit();

namespace pellumar {

void registerKit() {
    qml_register_types_Pellumar_Kit();
}

}  // namespace pellumar
