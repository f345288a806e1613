import QtQuick

// A card: raised on light, outlined on dark.
Rectangle {
    id: surface

    property bool lifted: true

    radius: Theme.cardRadius
    color: Theme.raised
    border.width: Theme.dark ? 1 : 0
    border.color: Theme.hairline

    SurfaceShadow { spread: 0; visible: surface.lifted && !Theme.dark }
    SurfaceShadow { spread: 1; visible: surface.lifted && !Theme.dark }
    SurfaceShadow { spread: 2; visible: surface.lifted && !Theme.dark }
}
