import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Pellumar.Kit
import Pellumar.Look

// A table's rows as they scroll. Arrows, Page, Home, End and letters lead to rows; where a row begins
// with the letters, the table's owner knows, who answers searched() with go().
ListView {
    id: list

    required property UITableView table
    property real rowHeight: Math.max(64, 36 + Theme.fontTitle + Theme.fontBody)
    property real readableWidth: Math.min(width, Theme.readableWidth)
    readonly property int page: Math.max(1, Math.floor(height / rowHeight) - 1)
    // The letters that belong together, as they came without a pause.
    property string letters: ""

    // The first row from `row` on, and after the last one from the first, is asked for.
    signal searched(string letters, int row)

    function go(row) {
        currentIndex = Math.max(0, Math.min(count - 1, row))
        positionViewAtIndex(currentIndex, ListView.Contain)
        if (currentIndex === 0) positionViewAtBeginning()
        if (currentItem) currentItem.forceActiveFocus()
        // The list has moved the keyboard already, and told it nothing of a key.
        const here = list.Window.activeFocusItem as T.Control
        if (here) here.focusReason = Qt.TabFocusReason
    }
    function stepOf(key) {
        const steps = {[Qt.Key_Up]: -1, [Qt.Key_Down]: 1, [Qt.Key_PageUp]: -page,
                       [Qt.Key_PageDown]: page, [Qt.Key_Home]: -count, [Qt.Key_End]: count}
        return steps[key] ?? 0
    }
    function search(typed) {
        letters += typed
        pause.restart()
        // The first letter leads on to the next row, more of them may stay.
        searched(letters, currentIndex + (letters.length === 1 ? 1 : 0))
    }

    model: table.rowCount
    reuseItems: true
    boundsBehavior: Flickable.DragOverBounds
    Keys.onPressed: event => {
        const isLetter = event.text > " " && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier))
        event.accepted = count > 0 && (stepOf(event.key) !== 0 || isLetter)
        if (event.accepted && isLetter) search(event.text)
        else if (event.accepted) go(currentIndex + stepOf(event.key))
    }
    Accessible.role: Accessible.List
    ScrollBar.vertical: ScrollBar { Accessible.ignored: true }

    Timer {
        id: pause
        interval: 1000
        onTriggered: list.letters = ""
    }

    delegate: ViewHost {
        id: host

        required property int index

        // qmllint disable unqualified
        x: (list.width - width) / 2
        width: list.readableWidth
        height: list.rowHeight
        onActiveFocusChanged: if (activeFocus) list.currentIndex = index
        Component.onCompleted: list.table.show(index, host)
        Component.onDestruction: list.table.hide(host)
        ListView.onPooled: list.table.hide(host)
        ListView.onReused: list.table.show(index, host)
        // qmllint enable unqualified
    }
}
