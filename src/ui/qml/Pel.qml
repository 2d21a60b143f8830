pragma Singleton

import QtQuick

/// The palette, distances and type sizes: a chart table at night, navy under a brass lamp. No other
/// file names a colour or a pixel.
QtObject {
    readonly property color canvas: "#0b1220"
    readonly property color panel: "#131d2f"
    readonly property color panelAlt: "#0d1626"
    readonly property color line: "#2a3a55"
    readonly property color outline: "#68779a" // of what can be used: three to one on every panel
    readonly property color selection: "#2b4168"
    readonly property color ink: "#f0eade"
    readonly property color inkMuted: "#a4b0c3"
    readonly property color brand: "#e6b455"
    property alias onBrand: filledColors.ink
    readonly property color ok: "#74d3a0"
    readonly property color warn: "#ff9f68"
    readonly property color danger: "#ff7f88"
    readonly property color cyan: "#66d0e8"

    // QML takes what begins with "on" for a handler, except in an alias.
    readonly property QtObject filled: QtObject {
        id: filledColors

        readonly property color ink: "#171204"
    }

    // Distances, all on a grid of four.
    readonly property int hair: 1
    readonly property int tight: 4
    readonly property int gap: 8
    readonly property int space: 12
    readonly property int margin: 16
    readonly property int wide: 24

    readonly property int radius: 8
    readonly property int cardRadius: 12

    readonly property int headerHeight: 64
    readonly property int controlHeight: 36
    readonly property int rowHeight: 28
    readonly property int buttonHeight: 48
    readonly property int symbolSize: 20
    readonly property int startWidth: 480
    readonly property int headingSymbolSize: 32
    readonly property int dotSize: 12
    readonly property int knobSize: 16
    readonly property int trackThickness: 4
    readonly property int switchWidth: 40
    readonly property int switchHeight: 24
    readonly property int stepWidth: 40
    readonly property int portWidth: 96
    readonly property int numberWidth: 72
    readonly property int numberHeight: 24
    readonly property int segmentWidth: 48
    readonly property int chipHeight: 28
    readonly property int longestWord: 88 // of running text, more or less
    readonly property int rateValueWidth: 56
    readonly property int familyWidth: 196
    readonly property int focusWidth: 2
    readonly property int scrollBarWidth: 8

    readonly property int tileHeight: 56
    readonly property int twoRowsOfTilesWidth: 440
    readonly property int pictureHeight: 224
    readonly property int dialWidth: 176
    readonly property int dialHeight: 168
    readonly property int consoleHeight: 240 // at least
    readonly property int consolePadding: 10
    readonly property int consoleRadius: 10
    readonly property int consoleRowHeight: 16
    readonly property int consoleTransportX: 64
    readonly property int consoleTextX: 98 // behind a time and a transport of 30
    readonly property int transportPickerWidth: 208
    readonly property int panelWidth: 320

    readonly property int minimumWidth: 400
    readonly property int minimumHeight: 480
    readonly property int windowWidth: 1040
    readonly property int windowHeight: 1000
    readonly property int twoColumnWidth: 800
    readonly property int sideBySideWidth: 400
    readonly property int contentWidth: 1280

    readonly property int titleSize: 20
    readonly property int valueSize: 20
    readonly property int headingSize: 15
    readonly property int textSize: 13
    readonly property int captionSize: 12
    readonly property int labelSize: 11
    readonly property int consoleSize: 11

    readonly property real captionLineHeight: 1.25
    readonly property real disabledOpacity: 0.45

    readonly property string monoFamily: "JetBrains Mono"

    readonly property int hintDelay: 700
    readonly property int pulseInterval: 600
    readonly property int feedbackInterval: 1600
    readonly property int followInterval: 100
    readonly property int quietInterval: 400
    readonly property int settleInterval: 250
    readonly property int clockInterval: 1000

    /// `base` with `share` (0 to 1) of `other` laid over it.
    function mix(base: color, other: color, share: real): color {
        return Qt.tint(base, Qt.rgba(other.r, other.g, other.b, share));
    }
}
