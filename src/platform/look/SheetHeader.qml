import QtQuick
import QtQuick.Layouts

// The upper end of a sheet that something is chosen in.
RowLayout {
    id: header

    property alias title: title.text
    property alias confirmText: confirm.text
    property bool canConfirm: true
    signal cancelled
    signal confirmed

    QuietButton {
        text: qsTr("Cancel")
        color: Theme.text
        onClicked: header.cancelled()
    }
    BodyText {
        id: title
        Layout.fillWidth: true
        font.pixelSize: Theme.fontTitle
        font.weight: Theme.weightStrong
        horizontalAlignment: Text.AlignHCenter
        elide: Text.ElideRight
        wrapMode: Text.NoWrap
        // Large text must not cost the words.
        verticalAlignment: Text.AlignVCenter
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 12
        Accessible.role: Accessible.Heading
    }
    QuietButton {
        id: confirm
        enabled: header.canConfirm
        onClicked: header.confirmed()
    }
}
