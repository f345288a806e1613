import QtQuick
import QtQuick.Layouts

// A sheet that is as high as the lines in it, which stand one below the other.
Sheet {
    default property alias lines: column.data

    preferredHeight: column.implicitHeight + 2 * Theme.space5

    ColumnLayout {
        id: column
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.space5
        spacing: Theme.space4
    }
}
