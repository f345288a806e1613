import QtQuick

// A card: raised on light, outlined on dark.
Rectangle {
    id: surface

    property bool lifted: true

    radius: Theme.cardRadius
    color: Theme.raised
    border.width: Theme.dark ? 1 : 0
    border.color: Theme.hairline

    Repeater {
        model: surface.lifted && !Theme.dark ? 3 : 0
        Rectangle {
            required property int index
            z: -1
            x: -index
            y: 1 - index + 2
            width: surface.width + 2 * index
            height: surface.height + 2 * index
            radius: surface.radius + index
            color: Theme.shadow
        }
    }
}
