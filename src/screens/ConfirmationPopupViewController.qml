import QtQuick
import QtQuick.Layouts
import Pellumar.Screens
import Pellumar.Look

Sheet {
    id: root

    required property ConfirmationPopupViewController controller

    progress: controller.presentation
    dissolves: controller.isDissolving
    preferredHeight: content.implicitHeight + 2 * Theme.space5
    preferredWidth: 400
    Accessible.role: Accessible.Dialog
    Accessible.name: titleLabel.text

    ColumnLayout {
        id: content
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.space5
        spacing: Theme.space4

        Icon {
            Layout.alignment: Qt.AlignHCenter
            Layout.preferredWidth: 48
            Layout.preferredHeight: 48
            name: "unzip"
            color: Theme.accentText
        }
        BodyText {
            id: titleLabel
            objectName: "titleLabel"
            Layout.fillWidth: true
            font.pixelSize: Theme.fontHeading
            font.weight: Theme.weightStrong
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            maximumLineCount: 5
            elide: Text.ElideRight
        }
        PrimaryButton {
            Layout.fillWidth: true
            focus: true
            text: qsTr("Unzip")
            onClicked: root.controller.unzipTapped()
        }
        QuietButton {
            Layout.fillWidth: true
            color: Theme.text
            text: qsTr("Cancel")
            onClicked: root.controller.cancelTapped()
        }
    }
}
