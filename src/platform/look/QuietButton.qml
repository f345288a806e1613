import QtQuick

// A button that is only text: the second choice beside a primary one, or a bar's.
PlainButton {
    id: button

    property color color: Theme.accentText

    leftPadding: Theme.space3
    rightPadding: Theme.space3
    topPadding: Theme.space2
    bottomPadding: Theme.space2
    opacity: enabled ? 1 : 0.5

    background: Rectangle {
        radius: Theme.controlRadius
        color: button.down || button.hovered ? Theme.pressed : "transparent"
        FocusRing { control: button }
    }
    contentItem: BodyText {
        text: button.text
        color: button.color
        font.pixelSize: Theme.fontTitle
        font.weight: Theme.weightStrong
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
