#include "app/App.h"

#include "platform/documents/Documents.h"
#include "platform/kit/Kit.h"
#include "platform/look/Look.h"
#include "platform/photos/Photos.h"
#include "platform/sharing/Sharing.h"
#include "screens/Screens.h"

// Made by Qt's build tools, which name it.
void qml_register_types_Pellumar_App();  // NOLINT(readability-identifier-naming)

namespace pellumar {

void registerLayouts() {
    registerLook();
    registerKit();
    registerDocuments();
    registerPhotos();
    registerSharing();
    registerScreens();
    qml_register_types_Pellumar_App();
}

}  // namespace pellumar
