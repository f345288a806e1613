import QtQuick
import Pellumar.Look

// The root of a screen's layout.
FocusScope {
    property alias color: background.color

    Rectangle {
        id: background
        anchors.fill: parent
        color: Theme.background
    }
}
