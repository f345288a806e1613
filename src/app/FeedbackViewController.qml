import QtQuick
import QtQuick.Layouts
import Pellumar.App
import Pellumar.Look

PromptSheet {
    id: root

    required property FeedbackViewController controller

    progress: controller.presentation
    onDismissed: controller.closeTapped()
    Accessible.name: question.text

    Heading {
        id: question
        Layout.fillWidth: true
        text: qsTr("How do you like Pellumar Zip?")
        horizontalAlignment: Text.AlignHCenter
    }
    StarEvaluationView {
        objectName: "starEvaluationView"
        Layout.fillWidth: true
        implicitHeight: 56
        focus: true
    }
    PrimaryButton {
        objectName: "sendButton"
        cornerRadius: 16
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
