import QtQuick
import QtQuick.Controls.Basic

// One of the places that a bar leads to. Screen readers know the kind of a control by its base only,
// which is why this is no PlainButton.
TabButton {
    id: tab

    focusPolicy: Qt.StrongFocus
    activeFocusOnTab: true
    hoverEnabled: true
    Accessible.name: text
    Accessible.onPressAction: if (enabled) clicked()
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked() }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked() }
}
