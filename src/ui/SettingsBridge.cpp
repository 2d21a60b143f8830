#include "ui/SettingsBridge.h"

#include <fmt/format.h>

#include "platform/Check.h"
#include "ui/Texts.h"

namespace tidewright::ui {

using gateway::SettingKind;

namespace {

SettingBridge* bridgeTo(const gateway::Setting& setting, QObject* parent) {
    switch (setting.kind) {
        case SettingKind::flag:
            return new FlagSetting(setting, parent);
        case SettingKind::integer:
        case SettingKind::number:
            return new NumberSetting(setting, parent);
        case SettingKind::choice:
            return new ChoiceSetting(setting, parent);
        case SettingKind::text:
        case SettingKind::position:
            return new SettingBridge(setting, parent);
    }
    platform::fail("no such kind of setting");
}

QString countOfFaults(std::size_t count) {
    if (count == 0) return {};
    return toQt(count == 1 ? "1 panne active" : fmt::format("{} pannes actives", count));
}

}  // namespace

SettingsBridge::SettingsBridge(gateway::Assembly& assembly) : assembly_(assembly) {
    for (const gateway::Setting& each : assembly.settings.all()) {
        rows_.push_back(bridgeTo(each, this));
        rows_.back()->setObjectName(toQt(each.name));
    }
    update();
    settingsChanges_ = assembly.settings.observe([this] { update(); });
    gatewayChanges_ = assembly.gateway.observe([this] {
        if (isRunning_ != assembly_.gateway.isRunning) update();
    });
}

template <typename Bridge>
Bridge* SettingsBridge::row(const QString& name) const {
    auto* found = findChild<Bridge*>(name, Qt::FindDirectChildrenOnly);
    platform::check(found != nullptr, "there must be a setting of that name and kind");
    return found;
}

FlagSetting* SettingsBridge::flag(const QString& name) const {
    return row<FlagSetting>(name);
}

NumberSetting* SettingsBridge::number(const QString& name) const {
    return row<NumberSetting>(name);
}

ChoiceSetting* SettingsBridge::choice(const QString& name) const {
    return row<ChoiceSetting>(name);
}

void SettingsBridge::update() {
    isRunning_ = assembly_.gateway.isRunning;
    for (SettingBridge* each : rows_) each->update(isRunning_);
    if (presetModified_ != assembly_.config.differsFromPreset()) {
        presetModified_ = !presetModified_;
        Q_EMIT presetModifiedChanged();
    }
    if (QString text = countOfFaults(assembly_.settings.activeFaults().size());
        text != faultsText_) {
        faultsText_ = std::move(text);
        Q_EMIT faultsTextChanged();
    }
}

}  // namespace tidewright::ui
