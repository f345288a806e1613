import QtQuick
import Pellumar.Documents
import Pellumar.Look

// Says what is in the folder and not in the list.
Column {
    id: note

    required property UIDocumentPickerViewController controller

    topPadding: Theme.space3
    bottomPadding: Theme.space3
    spacing: Theme.space1

    BodyText {
        width: note.width
        leftPadding: Theme.space4
        rightPadding: Theme.space4
        text: note.controller.model.notShown
        color: Theme.textSecondary
        horizontalAlignment: Text.AlignHCenter
    }
    QuietButton {
        anchors.horizontalCenter: parent.horizontalCenter
        visible: note.controller.model.hasHidden
        text: qsTr("Show hidden")
        onClicked: note.controller.model.showHidden()
    }
}
