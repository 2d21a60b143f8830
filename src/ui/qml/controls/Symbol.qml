import QtQuick
import QtQuick.Shapes
import Tidewright

/// A small drawing, in lines, on a field of 24 by 24.
Item {
    id: root

    required property string name
    required property color color
    property bool filled: false

    function path(name: string): string {
        switch (name) {
        case "iphone.gen3.radiowaves.left.and.right":
            return "M9.5 3h5a1.5 1.5 0 0 1 1.5 1.5v15a1.5 1.5 0 0 1 -1.5 1.5h-5a1.5 1.5 0 0 1 -1.5 -1.5v-15a1.5 1.5 0 0 1 1.5 -1.5z M11 18h2 M5 9a5 5 0 0 0 0 6 M2 7a9 9 0 0 0 0 10 M19 9a5 5 0 0 1 0 6 M22 7a9 9 0 0 1 0 10";
        case "gauge.with.dots.needle.bottom.50percent":
            return "M5.6 18.4a9 9 0 1 1 12.8 0 M12 14l0 -6 M10.5 14a1.5 1.5 0 1 0 3 0a1.5 1.5 0 1 0 -3 0 M6.5 12h0.01 M17.5 12h0.01 M8 8h0.01 M16 8h0.01";
        case "slider.horizontal.3":
            return "M3 6h8 M15 6h6 M3 12h3 M10 12h11 M3 18h11 M18 18h3 M11 6a2 2 0 1 0 4 0a2 2 0 1 0 -4 0 M6 12a2 2 0 1 0 4 0a2 2 0 1 0 -4 0 M14 18a2 2 0 1 0 4 0a2 2 0 1 0 -4 0";
        case "gearshape":
            return "M9 12a3 3 0 1 0 6 0a3 3 0 1 0 -6 0 M12 3v3 M12 18v3 M3 12h3 M18 12h3 M5.6 5.6l2.2 2.2 M16.2 16.2l2.2 2.2 M5.6 18.4l2.2 -2.2 M16.2 7.8l2.2 -2.2";
        case "terminal":
            return "M4.5 4h15a1.5 1.5 0 0 1 1.5 1.5v13a1.5 1.5 0 0 1 -1.5 1.5h-15a1.5 1.5 0 0 1 -1.5 -1.5v-13a1.5 1.5 0 0 1 1.5 -1.5z M7 9l3 3l-3 3 M12.5 15h4.5";
        case "play":
            return "M8 5v14l11 -7z";
        case "stop":
            return "M6 6h12v12h-12z";
        case "doc.on.doc":
            return "M9 8h9.5a1.5 1.5 0 0 1 1.5 1.5v9.5a1.5 1.5 0 0 1 -1.5 1.5h-9.5a1.5 1.5 0 0 1 -1.5 -1.5v-9.5a1.5 1.5 0 0 1 1.5 -1.5z M16 8v-3a1.5 1.5 0 0 0 -1.5 -1.5h-9.5a1.5 1.5 0 0 0 -1.5 1.5v9.5a1.5 1.5 0 0 0 1.5 1.5h2.5";
        case "checkmark":
            return "M5 13l4.5 4.5l10 -11";
        case "chevron.down":
            return "M6 9l6 6l6 -6";
        case "plus":
            return "M12 6v12 M6 12h12";
        case "minus":
            return "M6 12h12";
        case "sailboat":
            return "M12 3v13 M12 4c4 3 6 7 6.5 12h-6.5 M9 8c-2 2 -3.2 5 -3.5 8h3.5z M3 19h18c-0.8 1.6 -2 2.5 -4 2.5h-10c-2 0 -3.2 -0.9 -4 -2.5z";
        case "exclamationmark.triangle":
            return "M12 4l9 16h-18z M12 10v5 M12 17.5v0.01";
        default:
            return "";
        }
    }

    implicitWidth: Pel.symbolSize
    implicitHeight: Pel.symbolSize
    Accessible.ignored: true

    Shape {
        width: 24
        height: 24
        scale: root.width / width
        transformOrigin: Item.TopLeft

        ShapePath {
            strokeColor: root.color
            strokeWidth: 1.75
            fillColor: root.filled ? root.color : "transparent"
            capStyle: ShapePath.RoundCap
            joinStyle: ShapePath.RoundJoin

            PathSvg {
                path: root.path(root.name)
            }
        }
    }
}
