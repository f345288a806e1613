import QtQuick
import QtQuick.Layouts
import Pellumar.Kit
import Pellumar.Look

FocusScope {
    id: root

    required property UIAlertController controller

    Accessible.role: Accessible.AlertMessage
    Accessible.name: controller.alertTitle + ". " + controller.message
    Accessible.description: controller.reason

    Rectangle {
        anchors.fill: parent
        color: Theme.scrim
        opacity: root.controller.presentation
        // Keeps the pointer from the screen below.
        TapHandler {}
        HoverHandler {}
    }
    Surface {
        id: card

        // The tools know nothing of its type.
        readonly property var keyboard: Qt.inputMethod
        readonly property real spare: root.height - height - keyboard.keyboardRectangle.height

        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.max(Theme.space4, spare / 2)
        width: Math.min(parent.width - 2 * Theme.space4, Math.round(320 * Math.min(1.5, Theme.textScale)))
        height: content.implicitHeight + 2 * Theme.space5
        opacity: root.controller.presentation

        ColumnLayout {
            id: content
            anchors.fill: parent
            anchors.margins: Theme.space5
            spacing: Theme.space3
            BodyText {
                Layout.fillWidth: true
                text: root.controller.alertTitle
                font.pixelSize: Theme.fontHeading
                font.weight: Theme.weightStrong
                horizontalAlignment: Text.AlignHCenter
            }
            BodyText {
                Layout.fillWidth: true
                text: root.controller.message
                color: Theme.textSecondary
                horizontalAlignment: Text.AlignHCenter
            }
            AlertReason {
                Layout.fillWidth: true
                visible: root.controller.reason !== ""
                text: root.controller.reason
                onCopied: root.controller.copyReason()
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
    }
}
