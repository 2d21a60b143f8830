#pragma once

#include "ui/SettingBridge.h"

namespace tidewright::ui {

/// A number, whole or not.
class NumberSetting : public SettingBridge {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Reached through the settings")
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(double from READ from CONSTANT)
    Q_PROPERTY(double to READ to CONSTANT)
    Q_PROPERTY(double step READ step CONSTANT)
    Q_PROPERTY(QString range READ range CONSTANT)

public:
    using SettingBridge::SettingBridge;

    double value() const;
    QString text() const;  ///< with its unit, and as many decimals as a step has

    double from() const { return setting().range.from; }
    double to() const;  ///< as far as dials go
    double step() const { return setting().range.step; }
    QString range() const;  ///< both ends and the unit, as in "0 à 20 Hz"

    void setValue(double value);

    /// The number that a user typed, with a point or a comma, blanks around it, and perhaps its
    /// unit behind it; not a number for other texts, and for numbers that may not be.
    Q_INVOKABLE double read(const QString& text) const;

private:
    bool isWhole() const { return setting().kind == gateway::SettingKind::integer; }
    QString shownAs(double number) const;
};

}  // namespace tidewright::ui
