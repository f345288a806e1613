import QtQuick.Controls.Basic

ApplicationWindow {
    visible: true
    width: 420
    height: 760
}
