import QtQuick

// Shows where the keyboard is, and only to those who use it.
Rectangle {
    required property Item control
    // A Control or a TextField, which have this in common without a base that says so.
    readonly property var focused: control

    anchors.fill: parent
    anchors.margins: -2
    radius: Theme.controlRadius + 2
    color: "transparent"
    border.width: 2
    border.color: Theme.accentText
    visible: control.activeFocus && (focused.focusReason === Qt.TabFocusReason
                                     || focused.focusReason === Qt.BacktabFocusReason
                                     || focused.focusReason === Qt.ShortcutFocusReason)
}
