import QtQuick
import Tidewright

/// A small heading inside a card.
Text {
    color: Pel.ink
    font.pixelSize: Pel.textSize
    font.weight: Font.DemiBold
    textFormat: Text.PlainText
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
