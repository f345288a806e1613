import QtQuick

// An icon on a tinted square.
Rectangle {
    id: tile

    required property string name
    property real size: 48
    property real iconSize: 28
    property color iconColor: Theme.accentText
    property bool showsIcon: true

    implicitWidth: size
    implicitHeight: size
    radius: Theme.controlRadius
    color: Theme.accentTint

    Icon {
        anchors.centerIn: parent
        width: tile.iconSize
        height: tile.iconSize
        name: tile.name
        color: tile.iconColor
        visible: tile.showsIcon
    }
}
