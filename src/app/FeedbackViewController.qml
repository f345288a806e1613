import QtQuick
import QtQuick.Layouts
import Pellumar.App
import Pellumar.Look

Sheet {
    id: root

    required property FeedbackViewController controller

    progress: controller.presentation
    preferredHeight: content.implicitHeight + 2 * Theme.space5
    onDismissed: controller.closeTapped()
    Accessible.role: Accessible.Dialog
    Accessible.name: question.text

    ColumnLayout {
        id: content
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.space5
        spacing: Theme.space4

        BodyText {
            id: question
            Layout.fillWidth: true
            text: qsTr("How do you like Pellumar Zip?")
            font.pixelSize: Theme.fontHeading
            font.weight: Theme.weightStrong
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.Heading
        }
        StarEvaluationView {
            objectName: "starEvaluationView"
            Layout.fillWidth: true
            implicitHeight: 56
            focus: true
        }
        PrimaryButton {
            objectName: "sendButton"
            Layout.fillWidth: true
            text: qsTr("Send")
            onClicked: root.controller.sendTapped()
        }
        QuietButton {
            Layout.fillWidth: true
            text: qsTr("Not now")
            onClicked: root.controller.closeTapped()
        }
    }
}
