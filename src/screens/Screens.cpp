#include "screens/Screens.h"

void qml_register_types_Pellumar_Screens();

namespace pellumar {

void registerScreens() {
    qml_register_types_Pellumar_Screens();
}

}  // namespace pellumar
