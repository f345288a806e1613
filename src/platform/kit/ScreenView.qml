import QtQuick
import Pellumar.Look

// The root of a screen's layout.
FocusScope {
    Rectangle {
        anchors.fill: parent
        color: Theme.background
    }
}
