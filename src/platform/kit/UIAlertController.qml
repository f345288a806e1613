import QtQuick
import QtQuick.Layouts
import Pellumar.Kit
import Pellumar.Look

DialogCard {
    id: root

    required property UIAlertController controller

    presentation: controller.presentation
    Accessible.role: Accessible.AlertMessage
    Accessible.name: controller.alertTitle + ". " + controller.message
    Accessible.description: controller.reason

    Heading {
        Layout.fillWidth: true
        text: root.controller.alertTitle
        horizontalAlignment: Text.AlignHCenter
    }
    BodyText {
        Layout.fillWidth: true
        text: root.controller.message
        color: Theme.textSecondary
        horizontalAlignment: Text.AlignHCenter
    }
    // What lies behind the message: apart from it, with a way to hand on what stands behind that.
    Rectangle {
        Layout.fillWidth: true
        implicitHeight: reason.implicitHeight + Theme.space3 + Theme.space1
        visible: root.controller.reason !== ""
        radius: Theme.controlRadius
        color: Theme.background

        ColumnLayout {
            id: reason
            x: Theme.space3
            y: Theme.space3
            width: parent.width - 2 * Theme.space3
            spacing: 0

            BodyText {
                Layout.fillWidth: true
                objectName: "reason"
                text: root.controller.reason
            }
            QuietButton {
                Layout.fillWidth: true
                Layout.topMargin: Theme.space2
                objectName: "remedy"
                visible: text !== ""
                text: root.controller.remedy
                onClicked: root.controller.chooseRemedy()
            }
            QuietButton {
                Layout.alignment: Qt.AlignRight
                objectName: "copyReason"
                leftPadding: mirrored ? 0 : Theme.space3
                rightPadding: mirrored ? Theme.space3 : 0
                text: qsTr("Copy details")
                color: Theme.textSecondary
                onClicked: root.controller.copyReason()
            }
        }
    }
    InputField {
        Layout.fillWidth: true
        objectName: "textField"
        visible: root.controller.hasTextField
        focus: root.controller.hasTextField
        placeholderText: root.controller.placeholder
        text: root.controller.text
        Accessible.description: root.controller.hint
        onTextEdited: {
            const behind = length - cursorPosition
            root.controller.text = text
            cursorPosition = Math.max(0, length - behind)
        }
        onAccepted: root.controller.choose(0)
    }
    BodyText {
        Layout.fillWidth: true
        visible: text !== ""
        text: root.controller.hint
        color: Theme.error
        font.pixelSize: Theme.fontCaption
        Accessible.role: Accessible.AlertMessage
    }
    QuietButton {
        id: secretButton
        Layout.alignment: Qt.AlignHCenter
        objectName: "secretButton"
        visible: root.controller.secretOffer !== "" && !secretField.visible
        text: root.controller.secretOffer
        onClicked: {
            secretField.visible = true
            secretField.forceActiveFocus()
        }
    }
    PasswordField {
        id: secretField
        Layout.fillWidth: true
        objectName: "secretField"
        visible: false
        placeholderText: root.controller.secretPlaceholder
        onTextEdited: root.controller.secret = text
        onAccepted: root.controller.choose(0)
    }
    BodyText {
        Layout.fillWidth: true
        visible: secretField.visible && text !== ""
        text: root.controller.secretNote
        color: Theme.textSecondary
        font.pixelSize: Theme.fontCaption
    }
    RowLayout {
        Layout.fillWidth: true
        Layout.topMargin: Theme.space2
        spacing: Theme.space2
        // The way out stands at the left, though it was added last.
        layoutDirection: Qt.RightToLeft
        Repeater {
            model: root.controller.actionTitles
            QuietButton {
                required property int index
                required property string modelData

                Layout.fillWidth: true
                // All of one width, unless a title needs more.
                Layout.preferredWidth: 1
                Layout.minimumWidth: implicitWidth
                leftPadding: Theme.space1
                rightPadding: Theme.space1
                text: modelData
                // qmllint disable unqualified
                focus: index === 0 && !root.controller.hasTextField
                color: index === root.controller.cancelIndex ? Theme.text : Theme.accentText
                onClicked: root.controller.choose(index)
                // qmllint enable unqualified
            }
        }
    }
}
