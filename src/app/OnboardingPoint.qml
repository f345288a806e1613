import QtQuick
import QtQuick.Layouts
import Pellumar.Look

// One thing that the application does.
RowLayout {
    id: point

    property string iconName: ""
    property string text: ""

    Layout.fillWidth: true
    spacing: Theme.space4
    Icon {
        Layout.alignment: Qt.AlignTop
        name: point.iconName
        color: Theme.accentText
    }
    BodyText {
        Layout.fillWidth: true
        text: point.text
        font.pixelSize: Theme.fontTitle
    }
}
