import QtQuick
import QtQuick.Controls.Basic

// What all buttons have in common: keyboard, touch target, name and action for screen readers.
AbstractButton {
    id: button

    property string description: ""

    implicitHeight: Math.max(Theme.touchTarget, implicitContentHeight + topPadding + bottomPadding)
    implicitWidth: Math.max(Theme.touchTarget, implicitContentWidth + leftPadding + rightPadding)
    focusPolicy: Qt.StrongFocus
    activeFocusOnTab: true
    hoverEnabled: true

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: description
    // Screen readers cannot see in every case that it is disabled.
    Accessible.onPressAction: if (enabled) clicked()

    // A key that is held down is one click.
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked() }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked() }
}
