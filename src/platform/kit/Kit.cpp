#include "platform/kit/Kit.h"

#include "platform/kit/WindowAccessible.h"

// Made by Qt's build tools, which name it.
void qml_register_types_Pellumar_Kit();  // NOLINT(readability-identifier-naming)

namespace pellumar {

void registerKit() {
    qml_register_types_Pellumar_Kit();
    WindowAccessible::install();
}

}  // namespace pellumar
