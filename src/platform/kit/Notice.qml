import QtQuick
import QtQuick.Layouts
import Pellumar.Kit
import Pellumar.Look

Surface {
    id: root

    required property Notice controller
    readonly property bool isHeld: pointer.hovered || action.activeFocus || closing.activeFocus
    readonly property real room: parent ? parent.width : 0

    // Clear of the tabs, and a little lower on its way in.
    x: (room - width) / 2
    y: (parent ? parent.height : 0) - height - Theme.barHeight - Theme.space4 * controller.presence
    width: Math.min(room - 2 * Theme.space4, Theme.sheetWidth)
    height: Math.max(Theme.barHeight, content.implicitHeight + 2 * Theme.space1)
    z: 2000
    border.width: 1
    opacity: controller.presence
    onIsHeldChanged: controller.setHeld(isHeld)
    Accessible.role: Accessible.AlertMessage
    Accessible.name: controller.text

    HoverHandler { id: pointer }
    // Takes the pointer, so that what lies below is not tapped as well.
    MouseArea {
        anchors.fill: parent
        onClicked: root.controller.close()
        onWheel: wheel => wheel.accepted = true
    }
    RowLayout {
        id: content
        anchors.fill: parent
        anchors.leftMargin: Theme.space4
        anchors.rightMargin: Theme.space1
        spacing: Theme.space1
        BodyText {
            Layout.fillWidth: true
            text: root.controller.text
            maximumLineCount: 4
            elide: Text.ElideRight
        }
        QuietButton {
            id: action
            visible: text !== ""
            text: root.controller.actionTitle
            onClicked: root.controller.act()
        }
        IconButton {
            id: closing
            iconName: "close"
            color: Theme.textSecondary
            text: qsTr("Close")
            onClicked: root.controller.close()
        }
    }
}
