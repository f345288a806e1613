import QtQuick
import QtQuick.Layouts
import Pellumar.Documents
import Pellumar.Look

// A file or folder that can be picked.
PlainButton {
    id: row

    required property int index
    required property string name
    required property string detail
    required property string iconName
    required property bool isFolder
    required property bool isSelected
    required property UIDocumentPickerViewController controller
    required property KeyedList keyedList

    text: name
    description: detail
    leftPadding: Theme.space4
    rightPadding: Theme.space4
    topPadding: Theme.space2
    bottomPadding: Theme.space2
    // A check box then, for screen readers.
    checkable: !isFolder && controller.allowsMultipleSelection
    checked: isSelected
    Accessible.onToggleAction: if (enabled) clicked()
    onActiveFocusChanged: if (activeFocus) keyedList.currentIndex = index
    onClicked: controller.rowTapped(index)
    // Is one click, also where the second falls on what the first has opened.
    onDoubleClicked: {}
    // The button has counted both.
    onReleased: checked = Qt.binding(() => isSelected)

    background: Rectangle {
        color: row.isSelected ? Theme.accentTint
                              : row.down || row.hovered ? Theme.pressed : "transparent"
        FocusRing { control: row; anchors.margins: 2; radius: Theme.space2 }
    }
    contentItem: RowLayout {
        spacing: Theme.space3
        Icon {
            Layout.preferredWidth: 28
            Layout.preferredHeight: 28
            name: row.iconName
            color: row.isFolder ? Theme.accentText : Theme.textSecondary
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 0
            BodyText {
                Layout.fillWidth: true
                text: row.name
                font.pixelSize: Theme.fontTitle
                wrapMode: Text.NoWrap
                elide: Text.ElideMiddle
                Accessible.ignored: true
            }
            BodyText {
                Layout.fillWidth: true
                visible: text !== ""
                text: row.detail
                color: Theme.textSecondary
                font.pixelSize: Theme.fontCaption
                Accessible.ignored: true
            }
        }
        Icon {
            name: row.isFolder ? "chevron" : "check"
            color: row.isFolder ? Theme.textSecondary : Theme.accentText
            visible: row.isFolder || row.isSelected
        }
    }
}
