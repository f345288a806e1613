import QtQuick
import QtQuick.Layouts
import Pellumar.Screens
import Pellumar.Look

Sheet {
    id: root

    required property RemarksViewController controller

    progress: controller.presentation
    preferredHeight: content.implicitHeight + 2 * Theme.space5
    onDismissed: controller.doneTapped()
    Accessible.role: Accessible.Dialog
    Accessible.name: controller.heading

    ColumnLayout {
        id: content
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.space5
        spacing: Theme.space4

        BodyText {
            Layout.fillWidth: true
            text: root.controller.heading
            font.pixelSize: Theme.fontHeading
            font.weight: Theme.weightStrong
            Accessible.role: Accessible.Heading
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
}
