#pragma once

#include <QStringList>

#include "ui/SettingBridge.h"

namespace tidewright::ui {

/// One of a few.
class ChoiceSetting : public SettingBridge {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Reached through the settings")
    Q_PROPERTY(QString value READ value WRITE setValue NOTIFY changed)
    Q_PROPERTY(QString detail READ detail NOTIFY changed)
    Q_PROPERTY(QList<QString> values READ values CONSTANT)
    Q_PROPERTY(QList<QString> labels READ labels CONSTANT)
    Q_PROPERTY(QList<QString> details READ details CONSTANT)

public:
    using SettingBridge::SettingBridge;

    QString value() const;
    QString detail() const;  ///< of the value

    // What scripts and people call the values, and what more there is to say, in the same order.
    QStringList values() const;
    QStringList labels() const;
    QStringList details() const;

    /// Takes the value even where it is the one already: a preset may be applied again.
    void setValue(const QString& value) { drag(value.toStdString()); }
};

}  // namespace tidewright::ui
