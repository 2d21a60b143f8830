#include "ui/SettingBridge.h"

#include "ui/Texts.h"

namespace tidewright::ui {

SettingBridge::SettingBridge(const gateway::Setting& setting, QObject* parent)
    : QObject(parent), setting_(setting), shown_(setting.read()) {}

QString SettingBridge::label() const {
    return toQt(setting_.label);
}

void SettingBridge::update(bool isRunning) {
    const bool locked = isRunning && setting_.acts == gateway::SettingActs::nextStart &&
                        !setting_.isFreeWhileRunning;
    if (locked != locked_) {
        locked_ = locked;
        Q_EMIT lockedChanged();
    }
    if (gateway::SettingValue now = setting_.read(); now != shown_) {
        shown_ = std::move(now);
        Q_EMIT changed();
    }
}

void SettingBridge::drag(const gateway::SettingValue& value) {
    if (setting_.fits(value)) setting_.drag(value);
}

}  // namespace tidewright::ui
