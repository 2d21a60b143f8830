import QtQuick
import Tidewright

/// Running text in as few lines as `widest` allows, all of about the same length: no word ends up
/// alone on the last one.
BodyText {
    id: root

    required property real widest

    // With room for the longest word to spare, no line is left short by a word that does not fit.
    readonly property real spare: Math.min(Pel.longestWord, widest / 2)
    readonly property int lines: whole.advanceWidth <= widest
                                 ? 1 : Math.max(2, Math.ceil(whole.advanceWidth / (widest - spare)))

    width: lines === 1 ? Math.ceil(whole.advanceWidth) + 1 : Math.ceil(whole.advanceWidth / lines + spare)

    TextMetrics {
        id: whole

        font: root.font
        text: root.text
    }
}
