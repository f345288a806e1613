import QtQuick
import Pellumar.Documents
import Pellumar.Look

// The folders that lead to the one that is shown, each a way back to it.
ListView {
    id: way

    required property UIDocumentPickerViewController controller

    orientation: ListView.Horizontal
    clip: true
    model: controller.way
    // Where the user is stands at the end.
    onCountChanged: positionViewAtEnd()
    onContentWidthChanged: positionViewAtEnd()
    delegate: PlainButton {
        id: step

        required property int index
        required property string modelData
        // qmllint disable unqualified
        readonly property bool isLast: index === way.count - 1

        height: way.height
        text: modelData
        leftPadding: Theme.space2
        rightPadding: 0
        onClicked: way.controller.stepTapped(index)
        // qmllint enable unqualified
        background: Rectangle {
            radius: Theme.space2
            color: step.down || step.hovered ? Theme.pressed : "transparent"
            FocusRing { control: step; anchors.margins: 2; radius: Theme.space2 }
        }
        contentItem: Row {  // qmllint disable deferred-property-id
            spacing: Theme.space1
            BodyText {
                anchors.verticalCenter: parent.verticalCenter
                text: step.text
                color: step.isLast ? Theme.text : Theme.textSecondary
                font.weight: step.isLast ? Theme.weightStrong : Theme.weightNormal
                wrapMode: Text.NoWrap
                Accessible.ignored: true
            }
            Icon {
                anchors.verticalCenter: parent.verticalCenter
                width: 16
                height: 16
                name: "chevron"
                color: Theme.textSecondary
                visible: !step.isLast
            }
        }
    }
}
