import QtQuick
import QtQuick.Controls.Basic

// Something that is on or off.
AbstractButton {
    id: toggle

    // Whether the knob slides to where it belongs, or is there at once.
    property bool animates: true

    implicitWidth: 52
    implicitHeight: Theme.touchTarget
    checkable: true
    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.CheckBox
    Accessible.name: toggle.text
    Accessible.checkable: true
    Accessible.checked: toggle.checked
    Accessible.onToggleAction: if (enabled) flip()
    Accessible.onPressAction: if (enabled) flip()
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) flip() }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) flip() }

    // As a click does: the program's own change of the state emits no signal.
    function flip() {
        toggle.toggle();
        toggle.toggled();
    }

    indicator: Rectangle {
        x: (toggle.width - width) / 2
        y: (toggle.height - height) / 2
        width: 52
        height: 32
        radius: 16
        color: toggle.checked ? Theme.accentBottom : Theme.hairline
        Rectangle {
            objectName: "knob"
            x: toggle.checked !== toggle.mirrored ? 22 : 2
            y: 2
            width: 28
            height: 28
            radius: 14
            color: Theme.onPicture
            Behavior on x { enabled: toggle.animates; NumberAnimation { duration: Theme.quick } }
        }
        FocusRing { control: toggle; radius: 18 }
    }
}
