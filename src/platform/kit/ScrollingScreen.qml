import QtQuick
import QtQuick.Layouts
import Pellumar.Look

// A screen of one column, which is as wide as can be read and scrolls where it is too high.
ScreenView {
    id: root

    default property alias lines: column.data
    property alias spacing: column.spacing
    property real topMargin: Theme.space5

    Flickable {
        anchors.fill: parent
        contentHeight: column.y + column.implicitHeight + Theme.space5
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        ColumnLayout {
            id: column
            x: (parent.width - width) / 2
            y: root.topMargin
            width: Math.min(parent.width - 2 * Theme.space4, Theme.readableWidth)
            spacing: Theme.space4
        }
    }
}
