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
    GridLayout {
        id: content

        // Beside the text there is room for the button only while that is short.
        readonly property bool isStacked: action.visible
            && label.implicitWidth > width - action.implicitWidth - closing.implicitWidth - Theme.space2

        anchors.verticalCenter: parent.verticalCenter
        x: LayoutMirroring.enabled ? Theme.space1 : Theme.space4
        width: parent.width - Theme.space4 - Theme.space1
        columnSpacing: Theme.space1
        rowSpacing: 0
        BodyText {
            id: label
            Layout.fillWidth: true
            Layout.topMargin: content.isStacked ? Theme.space2 : 0
            text: root.controller.text
            maximumLineCount: 6
            elide: Text.ElideRight
        }
        QuietButton {
            id: action
            Layout.row: content.isStacked ? 1 : 0
            Layout.column: content.isStacked ? 0 : 1
            Layout.columnSpan: content.isStacked ? 3 : 1
            Layout.alignment: Qt.AlignRight
            visible: text !== ""
            text: root.controller.actionTitle
            onClicked: root.controller.act()
        }
        IconButton {
            id: closing
            Layout.row: 0
            Layout.column: 2
            Layout.alignment: Qt.AlignTop
            iconName: "close"
            color: Theme.textSecondary
            text: qsTr("Close")
            onClicked: root.controller.close()
        }
    }
}
