import QtQuick
import Pellumar.Documents
import Pellumar.Look

// The folder that is shown, after those that lead to it, each a way back to it.
ListView {
    id: way

    required property UIDocumentPickerViewController controller

    orientation: ListView.Horizontal
    clip: true
    model: Math.max(0, controller.way.length - 1)
    // Where the user is stands at the end.
    onContentWidthChanged: positionViewAtEnd()
    footer: BodyText {
        // qmllint disable unqualified
        height: way.height
        text: way.controller.folderName
        // qmllint enable unqualified
        leftPadding: Theme.space2
        rightPadding: Theme.space2
        font.weight: Theme.weightStrong
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.NoWrap
    }
    delegate: PlainButton {
        id: step

        required property int index
        // qmllint disable unqualified
        readonly property string folder: way.controller.way[index] ?? ""
        height: way.height
        onClicked: way.controller.stepTapped(index)
        // qmllint enable unqualified
        text: qsTr("Up to %1").arg(folder)
        leftPadding: mirrored ? 0 : Theme.space2
        rightPadding: mirrored ? Theme.space2 : 0
        background: Rectangle {
            radius: Theme.space2
            color: step.down || step.hovered ? Theme.pressed : "transparent"
            FocusRing { control: step; anchors.margins: 2; radius: Theme.space2 }
        }
        contentItem: Row {  // qmllint disable deferred-property-id
            spacing: Theme.space1
            BodyText {
                anchors.verticalCenter: parent.verticalCenter
                text: step.folder
                color: Theme.textSecondary
                wrapMode: Text.NoWrap
                Accessible.ignored: true
            }
            Icon {
                anchors.verticalCenter: parent.verticalCenter
                width: 16
                height: 16
                name: "chevron"
                color: Theme.textSecondary
            }
        }
    }
}
