import QtQuick

// Shows where the keyboard is, and only to those who use it.
Rectangle {
    required property Item control

    anchors.fill: parent
    anchors.margins: -2
    radius: Theme.controlRadius + 2
    color: "transparent"
    border.width: 2
    border.color: Theme.accentText
    visible: control.activeFocus && (control.focusReason === Qt.TabFocusReason
                                     || control.focusReason === Qt.BacktabFocusReason
                                     || control.focusReason === Qt.ShortcutFocusReason)
}
