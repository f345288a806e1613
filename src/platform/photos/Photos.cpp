#include "platform/photos/Photos.h"

// Made by Qt's build tools, which name it.
void qml_register_types_Pellumar_Photos();  // NOLINT(readability-identifier-naming)

namespace pellumar {

void registerPhotos() {
    qml_register_types_Pellumar_Photos();
}

}  // namespace pellumar
