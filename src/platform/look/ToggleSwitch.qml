import QtQuick
import QtQuick.Controls.Basic

// Something that is on or off.
AbstractButton {
    id: toggle

    implicitWidth: 52
    implicitHeight: Theme.touchTarget
    checkable: true
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onToggleAction: click()
    Accessible.onPressAction: click()
    Keys.onReturnPressed: click()
    Keys.onEnterPressed: click()

    indicator: Rectangle {
        anchors.centerIn: parent
        width: 52
        height: 32
        radius: 16
        color: toggle.checked ? Theme.accentBottom : Theme.hairline
        Rectangle {
            x: toggle.checked ? 22 : 2
            y: 2
            width: 28
            height: 28
            radius: 14
            color: "#ffffff"
            Behavior on x { NumberAnimation { duration: Theme.quick } }
        }
        FocusRing { control: toggle; radius: 18 }
    }
}
