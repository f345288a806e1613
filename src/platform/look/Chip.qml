import QtQuick

// One of several things of which one is chosen.
PlainButton {
    id: chip

    property string iconName: ""
    property bool isCurrent: false

    height: Theme.touchTarget
    leftPadding: iconName === "" ? Theme.space4 : Theme.space3
    rightPadding: Theme.space4
    Accessible.checkable: true
    Accessible.checked: isCurrent

    background: Rectangle {
        anchors.fill: parent
        anchors.topMargin: Theme.space1
        anchors.bottomMargin: Theme.space1
        radius: height / 2
        color: chip.isCurrent ? Theme.accentTint : chip.hovered ? Theme.pressed : "transparent"
        border.width: 1
        border.color: chip.isCurrent ? Theme.accentText : Theme.hairline
        FocusRing { control: chip; radius: height / 2 }
    }
    contentItem: Row {  // qmllint disable deferred-property-id
        spacing: Theme.space2
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            width: 18
            height: 18
            name: chip.iconName
            color: label.color
            visible: chip.iconName !== ""
        }
        BodyText {
            id: label
            anchors.verticalCenter: parent.verticalCenter
            text: chip.text
            color: chip.isCurrent ? Theme.accentText : Theme.text
            wrapMode: Text.NoWrap
            Accessible.ignored: true
        }
    }
}
