#include "app/App.h"

#include "platform/kit/WindowAccessible.h"
#include "platform/look/SecretAccessible.h"

// Made by Qt's build tools, which name them. Nothing else pulls these modules in.
// NOLINTBEGIN(readability-identifier-naming)
void qml_register_types_Pellumar_Look();
void qml_register_types_Pellumar_Kit();
void qml_register_types_Pellumar_Documents();
void qml_register_types_Pellumar_Photos();
void qml_register_types_Pellumar_Sharing();
void qml_register_types_Pellumar_Screens();
void qml_register_types_Pellumar_App();
// NOLINTEND(readability-identifier-naming)

namespace pellumar {

void registerLayouts() {
    qml_register_types_Pellumar_Look();
    qml_register_types_Pellumar_Kit();
    qml_register_types_Pellumar_Documents();
    qml_register_types_Pellumar_Photos();
    qml_register_types_Pellumar_Sharing();
    qml_register_types_Pellumar_Screens();
    qml_register_types_Pellumar_App();
    SecretAccessible::install();
    WindowAccessible::install();
}

QStringList layoutModules() {
    return {"Pellumar.App",
            "Pellumar.Screens",
            "Pellumar.Sharing",
            "Pellumar.Photos",
            "Pellumar.Documents",
            "Pellumar.Kit"};
}

}  // namespace pellumar
