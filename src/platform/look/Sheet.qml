import QtQuick

// The frame of what is presented over a screen: from the lower edge on a phone, a card in the
// middle of a larger window. `progress` brings it in.
FocusScope {
    id: sheet

    property real progress: 1
    property bool centered: width >= 600
    // Fades in its place instead of coming to it.
    property bool dissolves: false
    property real preferredHeight: 0
    property real preferredWidth: Theme.sheetWidth
    property bool fullHeight: false
    default property alias content: body.data
    signal dismissed

    Accessible.role: Accessible.Dialog

    Rectangle {
        anchors.fill: parent
        color: Theme.scrim
        opacity: sheet.progress
        TapHandler { onTapped: sheet.dismissed() }
    }
    Item {
        id: frame

        readonly property real available: sheet.height - (sheet.centered ? 2 : 1) * Theme.space5
        readonly property real moved: sheet.dissolves ? 1 : sheet.progress

        width: sheet.centered ? Math.min(sheet.width - 2 * Theme.space5, sheet.preferredWidth)
                              : sheet.width
        height: sheet.fullHeight ? available : Math.min(available, sheet.preferredHeight)
        x: (sheet.width - width) / 2
        y: sheet.centered ? (sheet.height - height) / 2 + Theme.space5 * (1 - moved)
                          : sheet.height - height * moved
        opacity: sheet.centered || sheet.dissolves ? sheet.progress : 1

        // Keeps the pointer from what lies below.
        TapHandler {}
        HoverHandler {}
        Rectangle {
            width: parent.width
            height: parent.height + (sheet.centered ? 0 : Theme.cardRadius)
            radius: Theme.cardRadius
            color: Theme.surface
            border.width: Theme.dark ? 1 : 0
            border.color: Theme.hairline
        }
        Rectangle {
            visible: !sheet.centered
            anchors.horizontalCenter: parent.horizontalCenter
            y: Theme.space2
            width: 36
            height: 4
            radius: 2
            color: Theme.hairline
        }
        // Scrolls what is too high for the window.
        Flickable {
            id: scroll
            anchors.fill: parent
            anchors.topMargin: sheet.centered ? Theme.space2 : Theme.space4
            contentHeight: body.height
            interactive: contentHeight > height
            boundsBehavior: Flickable.StopAtBounds
            clip: interactive
            Item {
                id: body
                width: scroll.width
                height: sheet.fullHeight ? scroll.height
                                         : Math.max(scroll.height, sheet.preferredHeight - scroll.y)
            }
        }
    }
}
