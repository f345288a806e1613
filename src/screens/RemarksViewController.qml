import QtQuick
import QtQuick.Layouts
import Pellumar.Screens
import Pellumar.Look

PromptSheet {
    id: root

    required property RemarksViewController controller

    progress: controller.presentation
    onDismissed: controller.doneTapped()
    Accessible.name: controller.heading

    Heading {
        Layout.fillWidth: true
        text: root.controller.heading
    }
    BodyText {
        Layout.fillWidth: true
        text: root.controller.introduction
        color: Theme.textSecondary
    }
    Repeater {
        model: root.controller.lines
        BodyText {
            required property string modelData

            Layout.fillWidth: true
            text: modelData
        }
    }
    RowLayout {
        Layout.fillWidth: true
        QuietButton {
            Layout.fillWidth: true
            objectName: "copyButton"
            text: qsTr("Copy details")
            color: Theme.text
            onClicked: root.controller.copyTapped()
        }
        QuietButton {
            Layout.fillWidth: true
            objectName: "doneButton"
            focus: true
            text: qsTr("Done")
            onClicked: root.controller.doneTapped()
        }
    }
}
