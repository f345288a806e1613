import QtQuick
import QtQuick.Layouts
import Pellumar.Kit
import Pellumar.Screens
import Pellumar.Look

DialogCard {
    id: root

    required property PasswordViewController controller

    presentation: controller.presentation
    Accessible.role: Accessible.Dialog
    Accessible.name: heading.text + ". " + message.text

    Icon {
        Layout.alignment: Qt.AlignHCenter
        Layout.preferredWidth: 32
        Layout.preferredHeight: 32
        name: "lock"
        color: Theme.accentText
    }
    Heading {
        id: heading
        Layout.fillWidth: true
        text: qsTr("Password needed")
        horizontalAlignment: Text.AlignHCenter
    }
    BodyText {
        id: message
        Layout.fillWidth: true
        text: qsTr("%1 is protected with a password.").arg(root.controller.archiveName)
        color: Theme.textSecondary
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WrapAtWordBoundaryOrAnywhere
        maximumLineCount: 4
        elide: Text.ElideRight
    }
    PasswordField {
        id: password
        Layout.fillWidth: true
        objectName: "passwordField"
        focus: true
        readOnly: root.controller.isTrying
        placeholderText: qsTr("Password")
        description: wrong.text
        onTextEdited: root.controller.edited()
        onAccepted: root.controller.openTapped(text)

        // What is typed next takes the place of what did not fit.
        Connections {
            target: root.controller
            function onStateChanged() {
                if (root.controller.wasWrong)
                    password.selectAll()
            }
        }
    }
    BodyText {
        id: wrong
        Layout.fillWidth: true
        objectName: "wrongLine"
        visible: text !== ""
        text: root.controller.wasWrong ? qsTr("This is not the password.") : ""
        color: Theme.error
        font.pixelSize: Theme.fontCaption
        Accessible.role: Accessible.AlertMessage
    }
    PrimaryButton {
        Layout.fillWidth: true
        Layout.topMargin: Theme.space2
        objectName: "openButton"
        enabled: password.length > 0 && !root.controller.isTrying
        text: qsTr("Open")
        onClicked: root.controller.openTapped(password.text)
    }
    QuietButton {
        Layout.fillWidth: true
        objectName: "cancelButton"
        color: Theme.text
        text: qsTr("Cancel")
        onClicked: root.controller.cancelTapped()
    }
}
