import QtQuick
import Tidewright

/// What is wrong with something that was typed; out of sight while nothing is.
Caption {
    visible: text !== ""
    color: Pel.danger
    Accessible.role: Accessible.AlertMessage
}
