#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>
#include <vector>

#include "gateway/Assembly.h"
#include "platform/Subscription.h"
#include "ui/ChoiceSetting.h"
#include "ui/FlagSetting.h"
#include "ui/NumberSetting.h"

namespace tidewright::ui {

/// Shows the list of settings to QML: one object a row, by its name, whose signal comes only when
/// its own value changed.
class SettingsBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Settings)
    QML_UNCREATABLE("Made once, by the program")
    Q_PROPERTY(bool presetModified READ presetModified NOTIFY presetModifiedChanged)
    Q_PROPERTY(QString faultsText READ faultsText NOTIFY faultsTextChanged)

public:
    /// `assembly` must outlive this.
    explicit SettingsBridge(gateway::Assembly& assembly);

    // The row of that name, which must be one of that kind.
    Q_INVOKABLE tidewright::ui::FlagSetting* flag(const QString& name) const;
    Q_INVOKABLE tidewright::ui::NumberSetting* number(const QString& name) const;
    Q_INVOKABLE tidewright::ui::ChoiceSetting* choice(const QString& name) const;

    bool presetModified() const { return presetModified_; }  ///< since the preset was applied
    QString faultsText() const { return faultsText_; }  ///< as in "2 pannes actives"; empty: none

Q_SIGNALS:
    void presetModifiedChanged();
    void faultsTextChanged();

private:
    template <typename Bridge>
    Bridge* row(const QString& name) const;

    void update();

    gateway::Assembly& assembly_;
    std::vector<SettingBridge*> rows_;
    bool isRunning_ = false;
    bool presetModified_ = false;
    QString faultsText_;
    platform::Subscription settingsChanges_;
    platform::Subscription gatewayChanges_;
};

}  // namespace tidewright::ui
