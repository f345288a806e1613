import QtQuick

// A button that is only an icon; its text is for screen readers.
PlainButton {
    id: button

    property string iconName: ""
    property color color: Theme.accentText

    implicitWidth: Theme.touchTarget
    implicitHeight: Theme.touchTarget

    background: Rectangle {
        radius: width / 2
        color: button.down || button.hovered ? Theme.pressed : "transparent"
        FocusRing { control: button; radius: width / 2 }
    }
    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            name: button.iconName
            color: button.color
        }
    }
}
