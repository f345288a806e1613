#include "platform/kit/Kit.h"

// Made by Qt's build tools, which name it.
void qml_register_types_Pellumar_Kit();  // NOLINT(readability-identifier-naming)

namespace pellumar {

void registerKit() {
    qml_register_types_Pellumar_Kit();
}

}  // namespace pellumar
