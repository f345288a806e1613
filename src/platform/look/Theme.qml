pragma Singleton
import QtQuick

// The visual language in one place: nothing else names a colour, a size or a duration.
QtObject {
    // What the user wants; set by the program.
    property bool dark: false
    property bool still: false
    property real textScale: 1

    // The gradient of the primary action, of progress and of the onboarding.
    readonly property color accentTop: "#ffa438"
    readonly property color accentBottom: "#ff652b"
    readonly property color onAccent: "#2a1206"
    // Marks on photos, and the knob of a switch.
    readonly property color onPicture: "#ffffff"
    // The accent as text and in small icons: over 4.5 to 1 against the background.
    readonly property color accentText: dark ? "#ffa438" : "#c2410c"
    readonly property color accentTint: dark ? "#33241a" : "#fff0e4"

    readonly property color background: dark ? "#12100e" : "#faf7f4"
    readonly property color surface: dark ? "#1d1a17" : "#ffffff"
    readonly property color raised: dark ? "#262220" : "#ffffff"
    readonly property color pressed: dark ? "#2e2925" : "#f1ebe5"
    readonly property color text: dark ? "#f5efe9" : "#1f1a16"
    readonly property color textSecondary: dark ? "#b3a89e" : "#6b6058"
    readonly property color hairline: dark ? "#3a342f" : "#e6ded6"
    readonly property color error: dark ? "#ff8a80" : "#b3261e"
    readonly property color scrim: dark ? "#b3000000" : "#80201409"
    readonly property color shadow: dark ? "#00000000" : "#14442a10"

    readonly property int space1: 4
    readonly property int space2: 8
    readonly property int space3: 12
    readonly property int space4: 16
    readonly property int space5: 24
    readonly property int space6: 32

    readonly property int cardRadius: 16
    readonly property int controlRadius: 12
    readonly property int touchTarget: 44
    readonly property int iconSize: 24
    readonly property int barHeight: Math.max(52, Math.round(36 + 16 * textScale))
    // Lines longer than this are hard to read.
    readonly property int readableWidth: 640
    readonly property int sheetWidth: 480

    readonly property int fontCaption: Math.round(12 * textScale)
    readonly property int fontBody: Math.round(14 * textScale)
    readonly property int fontTitle: Math.round(16 * textScale)
    readonly property int fontHeading: Math.round(20 * textScale)
    readonly property int fontDisplay: Math.round(28 * textScale)
    readonly property int weightNormal: Font.Normal
    readonly property int weightStrong: Font.DemiBold

    readonly property int quick: still ? 0 : 150
    readonly property int calm: still ? 0 : 220
}
