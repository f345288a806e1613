import QtQuick
import Pellumar.Look

// A ring that fills, or turns while nobody knows how long it takes.
Item {
    id: ring

    property bool determinate: false
    property real progress: 0
    // Callbacks come in jumps; the ring does not.
    property real shown: progress

    implicitWidth: 64
    implicitHeight: 64

    Behavior on shown {
        enabled: !Theme.still
        SmoothedAnimation { duration: Theme.calm; velocity: -1 }
    }

    RingArc {
        id: arc
        anchors.fill: parent
        thickness: 5
        trackColor: Theme.hairline
        color: Theme.accentBottom
        part: ring.determinate ? ring.shown : 0.25
    }

    RotationAnimator {
        target: arc
        from: 0; to: 360
        duration: 900
        loops: Animation.Infinite
        running: !ring.determinate && ring.visible && !Theme.still
        onStopped: arc.rotation = 0
    }
}
