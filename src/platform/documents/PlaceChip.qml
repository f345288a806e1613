import QtQuick
import Pellumar.Documents
import Pellumar.Look

// A folder that people start from.
PlainButton {
    id: chip

    required property int index
    required property string modelData
    required property UIDocumentPickerViewController controller
    readonly property bool isCurrent: index === controller.currentPlace

    height: Theme.touchTarget
    text: modelData
    leftPadding: Theme.space3
    rightPadding: Theme.space4
    onClicked: controller.placeTapped(index)

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
    contentItem: Row {
        spacing: Theme.space2
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            width: 18
            height: 18
            name: chip.controller.placeIcons[chip.index]
            color: label.color
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
