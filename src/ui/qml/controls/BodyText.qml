import QtQuick
import Tidewright

/// Running text, which wraps.
Text {
    color: Pel.ink
    font.pixelSize: Pel.textSize
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    lineHeight: Pel.captionLineHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: text === ""
}
