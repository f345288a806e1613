import QtQuick

// The one action that a screen is about.
PlainButton {
    id: button

    property real cornerRadius: Theme.controlRadius

    leftPadding: Theme.space5
    rightPadding: Theme.space5
    topPadding: Theme.space3
    bottomPadding: Theme.space3
    opacity: enabled ? 1 : 0.5

    background: Rectangle {
        radius: button.cornerRadius
        gradient: Gradient {
            GradientStop { position: 0; color: Theme.accentTop }
            GradientStop { position: 1; color: Theme.accentBottom }
        }
        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.onAccent
            opacity: button.down ? 0.16 : button.hovered ? 0.06 : 0
        }
        FocusRing { control: button }
    }
    contentItem: BodyText {
        text: button.text
        color: Theme.onAccent
        font.pixelSize: Theme.fontTitle
        font.weight: Theme.weightStrong
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
