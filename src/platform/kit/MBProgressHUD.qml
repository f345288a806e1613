import QtQuick
import Pellumar.Kit
import Pellumar.Look

FocusScope {
    id: root

    required property MBProgressHUD controller

    opacity: controller.presence
    z: 1000
    // Nothing below can be reached while it is there; only the way back is open.
    Keys.onPressed: event => {
        event.accepted = event.key !== Qt.Key_Escape && event.key !== Qt.Key_Back
                         && !event.matches(StandardKey.Back)
    }
    Accessible.role: Accessible.ProgressBar
    Accessible.name: controller.label
    Accessible.description: controller.isDeterminate ? Math.round(controller.progress * 100) + " %"
                                                     : controller.detailsLabel

    Rectangle {
        anchors.fill: parent
        color: Theme.background
        opacity: 0.72
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onWheel: wheel => wheel.accepted = true
    }
    Surface {
        anchors.centerIn: parent
        width: Math.min(root.width - 2 * Theme.space6, Math.round(176 * Theme.textScale))
        height: content.implicitHeight + 2 * Theme.space5

        Column {
            id: content
            anchors.centerIn: parent
            width: parent.width - 2 * Theme.space5
            spacing: Theme.space4
            ProgressRing {
                anchors.horizontalCenter: parent.horizontalCenter
                determinate: root.controller.isDeterminate
                progress: root.controller.progress
            }
            BodyText {
                width: parent.width
                visible: text !== ""
                text: root.controller.label
                font.pixelSize: Theme.fontTitle
                font.weight: Theme.weightStrong
                horizontalAlignment: Text.AlignHCenter
            }
            BodyText {
                width: parent.width
                visible: text !== ""
                text: root.controller.detailsLabel
                color: Theme.textSecondary
                horizontalAlignment: Text.AlignHCenter
            }
        }
    }
}
