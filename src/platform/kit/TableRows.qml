import QtQuick
import QtQuick.Controls.Basic
import Pellumar.Kit
import Pellumar.Look

// A table's rows as they scroll.
ListView {
    id: list

    required property UITableView table
    property real rowHeight: Math.max(64, 36 + Theme.fontTitle + Theme.fontBody)
    property real readableWidth: Math.min(width, Theme.readableWidth)

    model: table.rowCount
    reuseItems: true
    boundsBehavior: Flickable.DragOverBounds
    keyNavigationEnabled: true
    Accessible.role: Accessible.List
    ScrollBar.vertical: ScrollBar { Accessible.ignored: true }

    delegate: ViewHost {
        id: host

        required property int index

        // qmllint disable unqualified
        x: (list.width - width) / 2
        width: list.readableWidth
        height: list.rowHeight
        Component.onCompleted: list.table.show(index, host)
        Component.onDestruction: list.table.hide(host)
        ListView.onPooled: list.table.hide(host)
        ListView.onReused: list.table.show(index, host)
        // qmllint enable unqualified
    }
}
