import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T

// A list for the keyboard: arrows, pages, both ends, the first letters of a name. The row with the
// keyboard shows it.
ListView {
    id: list

    property string typed: ""
    // Whether the user has come with keys.
    property bool isKeyed: false
    readonly property int page: Math.max(1, Math.floor(height / Math.max(1, currentItem?.height ?? 56)) - 1)
    // The first row from `from` on whose name begins with `start` is asked for: go() answers.
    signal searched(string start, int from)
    signal backAsked
    signal allAsked

    // A header that grows as more becomes known stays in view until the user has moved on.
    readonly property real headerHeight: headerItem?.height ?? 0
    property bool hasMoved: false
    onHeaderHeightChanged: if (!hasMoved) positionViewAtBeginning()
    onMovementStarted: hasMoved = true

    currentIndex: -1
    highlightFollowsCurrentItem: true
    highlightMoveDuration: 0
    reuseItems: true
    ScrollBar.vertical: ScrollBar {
        Accessible.ignored: true
        onPressedChanged: list.hasMoved = true
    }
    Accessible.role: Accessible.List

    Timer {
        id: pause
        interval: 1000
        onTriggered: list.typed = ""
    }

    function go(to: int): void {
        isKeyed = true
        if (count === 0) return
        hasMoved = true
        currentIndex = Math.max(0, Math.min(count - 1, to))
        positionViewAtIndex(currentIndex, ListView.Contain)
        if (currentIndex === 0) positionViewAtBeginning()
        currentItem?.forceActiveFocus(Qt.ShortcutFocusReason)
        // The view has given it the keyboard already, for no reason.
        const here = list.Window.activeFocusItem as T.Control
        if (here) here.focusReason = Qt.ShortcutFocusReason
    }

    // For new rows.
    function begin(row: int): void {
        const hadKeys = isKeyed && (activeFocus || currentItem?.activeFocus)
        currentIndex = -1
        positionViewAtIndex(row, ListView.Contain)
        if (hadKeys) go(row)
    }

    // Type on, or the same letter again for the next of its kind.
    function seek(letter: string): void {
        pause.restart()
        typed = typed === letter ? letter : typed + letter
        searched(typed, typed.length > 1 ? currentIndex : currentIndex + 1)
    }

    function goesTo(key: int): int {
        switch (key) {
        case Qt.Key_Up: return currentIndex < 0 ? 0 : currentIndex - 1
        case Qt.Key_Down: return currentIndex + 1
        case Qt.Key_PageUp: return currentIndex - page
        case Qt.Key_PageDown: return currentIndex + page
        case Qt.Key_Home: return 0
        case Qt.Key_End: return count - 1
        default: return -2
        }
    }

    // A key of the list's own, or one that nothing beside it took.
    function take(event) {
        const row = goesTo(event.key)
        event.accepted = true
        if (row !== -2) go(row)
        else if (event.key === Qt.Key_Backspace) backAsked()
        else if (event.matches(StandardKey.SelectAll)) allAsked()
        else if (event.text > " " && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier))) seek(event.text)
        else event.accepted = false
    }

    Keys.onPressed: event => take(event)
}
