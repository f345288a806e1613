import QtQuick

// Lets the program reach the theme.
QtObject {
    readonly property QtObject theme: Theme
}
