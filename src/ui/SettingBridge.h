#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

#include "gateway/Setting.h"

namespace tidewright::ui {

/// One row of the list of settings, which must outlive it, for QML. Each kind has its class below.
class SettingBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Setting)
    QML_UNCREATABLE("Reached through the settings")
    Q_PROPERTY(QString label READ label CONSTANT)
    Q_PROPERTY(bool locked READ locked NOTIFY lockedChanged)

public:
    SettingBridge(const gateway::Setting& setting, QObject* parent);

    QString label() const;

    /// Whether it must not be changed now, while the gateway runs.
    bool locked() const { return locked_; }

    /// Looks whether anything changed, and says so.
    void update(bool isRunning);

Q_SIGNALS:
    void changed();
    void lockedChanged();

protected:
    const gateway::Setting& setting() const { return setting_; }

    /// What is in force, as the kind has it.
    template <typename Value>
    const Value& shown() const {
        return std::get<Value>(shown_);
    }

    /// Writes a value as somebody who drags does; one that does not fit changes nothing.
    void drag(const gateway::SettingValue& value);

private:
    const gateway::Setting& setting_;
    gateway::SettingValue shown_;
    bool locked_ = false;
};

}  // namespace tidewright::ui
