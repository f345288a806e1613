#include "screens/Screens.h"

// Made by Qt's build tools, which name it.
void qml_register_types_Pellumar_Screens();  // NOLINT(readability-identifier-naming)

namespace pellumar {

void registerScreens() {
    qml_register_types_Pellumar_Screens();
}

}  // namespace pellumar
