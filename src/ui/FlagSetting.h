#pragma once

#include "ui/SettingBridge.h"

namespace tidewright::ui {

/// A yes or no.
class FlagSetting : public SettingBridge {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Reached through the settings")
    Q_PROPERTY(bool value READ value WRITE setValue NOTIFY changed)

public:
    using SettingBridge::SettingBridge;

    bool value() const { return shown<bool>(); }
    void setValue(bool value) { drag(value); }
};

}  // namespace tidewright::ui
