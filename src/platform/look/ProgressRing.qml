import QtQuick
import QtQuick.Shapes

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

    Shape {
        id: shape
        anchors.fill: parent
        layer.enabled: true
        layer.samples: 4
        layer.smooth: true

        ShapePath {
            strokeWidth: 5
            strokeColor: Theme.hairline
            fillColor: "transparent"
            PathAngleArc {
                centerX: ring.width / 2; centerY: ring.height / 2
                radiusX: ring.width / 2 - 4; radiusY: radiusX
                startAngle: 0; sweepAngle: 360
            }
        }
        ShapePath {
            strokeWidth: 5
            strokeColor: Theme.accentBottom
            fillColor: "transparent"
            capStyle: ShapePath.RoundCap
            PathAngleArc {
                centerX: ring.width / 2; centerY: ring.height / 2
                radiusX: ring.width / 2 - 4; radiusY: radiusX
                startAngle: -90
                sweepAngle: ring.determinate ? 360 * ring.shown : 90
            }
        }
    }

    RotationAnimator {
        target: shape
        from: 0; to: 360
        duration: 900
        loops: Animation.Infinite
        running: !ring.determinate && ring.visible && !Theme.still
        onStopped: shape.rotation = 0
    }
}
