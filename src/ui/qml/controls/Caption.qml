import QtQuick
import Tidewright

/// An explanation under a control.
BodyText {
    color: Pel.inkMuted
    font.pixelSize: Pel.captionSize
}
