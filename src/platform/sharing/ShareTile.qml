import QtQuick
import Pellumar.Look

// One way to share.
PlainButton {
    id: tile

    property string iconName: ""

    implicitWidth: 1
    padding: Theme.space2
    background: Rectangle {
        radius: Theme.controlRadius
        color: tile.down || tile.hovered ? Theme.pressed : "transparent"
        FocusRing { control: tile }
    }
    contentItem: Column {
        spacing: Theme.space2
        IconTile {
            anchors.horizontalCenter: parent.horizontalCenter
            size: 52
            iconSize: Theme.iconSize
            radius: Theme.cardRadius
            name: tile.iconName
        }
        BodyText {
            width: parent.width
            text: tile.text
            font.pixelSize: Theme.fontCaption
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
