import QtQuick
import QtQuick.Layouts

// A whole action as a card: picture, name, and one line of what it does.
PlainButton {
    id: card

    property string iconName: ""
    property bool compact: false
    property bool primary: false

    padding: compact ? Theme.space4 : Theme.space5
    Accessible.description: description

    background: Surface {
        color: card.down ? Theme.pressed : Theme.raised
        FocusRing { control: card; radius: Theme.cardRadius + 2 }
    }
    contentItem: RowLayout {
        spacing: Theme.space4
        IconTile {
            size: card.compact ? 48 : 64
            iconSize: card.compact ? 28 : 36
            radius: Theme.cardRadius
            gradient: card.primary ? accentGradient : null
            name: card.iconName
            iconColor: card.primary ? Theme.onAccent : Theme.accentText
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.space1
            Heading {
                Layout.fillWidth: true
                text: card.text
                Accessible.ignored: true
            }
            BodyText {
                Layout.fillWidth: true
                text: card.description
                color: Theme.textSecondary
                Accessible.ignored: true
            }
        }
        Icon {
            name: "chevron"
            color: Theme.textSecondary
            Layout.preferredWidth: 20
            Layout.preferredHeight: 20
        }
    }

    Gradient {
        id: accentGradient
        GradientStop { position: 0; color: Theme.accentTop }
        GradientStop { position: 1; color: Theme.accentBottom }
    }
}
