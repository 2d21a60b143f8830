pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Tidewright

/// One choice of a few, side by side. Arrows move between them; picked() reports the user's.
Rectangle {
    id: root

    required property string label
    required property list<string> values
    required property list<string> labels
    required property string current

    signal picked(value: string)

    function move(step: int) {
        const next = segments.itemAt(values.indexOf(current) + step);
        if (next) {
            picked(values[values.indexOf(current) + step]);
            next.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    implicitWidth: Pel.segmentWidth * labels.length + 2 * row.anchors.margins
    implicitHeight: Pel.controlHeight
    radius: Pel.radius
    color: Pel.panelAlt
    border.width: Pel.hair
    border.color: Pel.line
    Accessible.role: Accessible.Grouping
    Accessible.name: label

    Keys.onLeftPressed: move(-1)
    Keys.onUpPressed: move(-1)
    Keys.onRightPressed: move(+1)
    Keys.onDownPressed: move(+1)

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.margins: Pel.tight
        spacing: Pel.tight

        Repeater {
            id: segments

            model: root.labels

            RadioButton {
                id: segment

                required property int index
                required property string modelData
                readonly property bool chosen: root.values[index] === root.current

                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredWidth: 1 // all the same
                padding: 0
                text: modelData
                checked: chosen
                focusPolicy: chosen || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
                Accessible.name: text
                Accessible.onPressAction: clicked()
                Accessible.onToggleAction: clicked()
                onClicked: root.picked(root.values[index])

                indicator: null
                background: Rectangle {
                    radius: Pel.tight
                    color: segment.chosen ? (root.enabled ? Pel.brand : Pel.selection)
                                          : segment.hovered ? Pel.line : "transparent"

                    FocusRing {
                        radius: Pel.tight
                        active: segment.visualFocus
                    }
                }
                contentItem: Text {
                    text: segment.text
                    color: !root.enabled ? (segment.chosen ? Pel.ink : Pel.inkMuted)
                                         : segment.chosen ? Pel.onBrand : Pel.ink
                    font.pixelSize: Pel.captionSize
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: Pel.labelSize - 2
                    font.weight: Font.Medium
                    textFormat: Text.PlainText
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    elide: Text.ElideRight
                    Accessible.ignored: true
                }
            }
        }
    }
}
