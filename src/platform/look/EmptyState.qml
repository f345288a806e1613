import QtQuick

// What a list shows that has nothing to show.
Column {
    id: empty

    property string iconName: ""
    property string text: ""

    spacing: Theme.space4

    Icon {
        anchors.horizontalCenter: parent.horizontalCenter
        width: 72
        height: 72
        name: empty.iconName
        color: Theme.textSecondary
        opacity: 0.6
    }
    BodyText {
        width: empty.width
        text: empty.text
        color: Theme.textSecondary
        font.pixelSize: Theme.fontTitle
        horizontalAlignment: Text.AlignHCenter
    }
}
