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
    SheetFoot {
        copyTitle: qsTr("Copy details")
        onCopied: root.controller.copyTapped()
        onClosed: root.controller.doneTapped()
    }
}
