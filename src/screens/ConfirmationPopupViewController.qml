import QtQuick
import QtQuick.Layouts
import Pellumar.Screens
import Pellumar.Look

PromptSheet {
    id: root

    required property ConfirmationPopupViewController controller

    progress: controller.presentation
    dissolves: controller.isDissolving
    preferredWidth: 400
    Accessible.name: titleLabel.text

    Icon {
        Layout.alignment: Qt.AlignHCenter
        Layout.preferredWidth: 48
        Layout.preferredHeight: 48
        name: "unzip"
        color: Theme.accentText
    }
    Heading {
        id: titleLabel
        objectName: "titleLabel"
        Layout.fillWidth: true
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WrapAtWordBoundaryOrAnywhere
        maximumLineCount: 5
        elide: Text.ElideRight
        Accessible.role: Accessible.StaticText
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
