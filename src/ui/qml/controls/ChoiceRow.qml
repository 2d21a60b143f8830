import QtQuick
import QtQuick.Layouts
import Tidewright

/// One setting that is one of a few.
SegmentedPicker {
    required property ChoiceSetting setting

    Layout.fillWidth: true
    label: setting.label
    values: setting.values
    labels: setting.labels
    current: setting.value
    enabled: !setting.locked
    onPicked: value => setting.value = value
}
