#include "ui/ChoiceSetting.h"

#include <algorithm>

#include "ui/Texts.h"

namespace tidewright::ui {

using gateway::SettingChoice;

QString ChoiceSetting::value() const {
    return toQt(shown<std::string>());
}

QString ChoiceSetting::detail() const {
    return toQt(
        std::ranges::find(setting().choices, shown<std::string>(), &SettingChoice::value)->detail);
}

QStringList ChoiceSetting::values() const {
    return toQt(setting().choices, [](const SettingChoice& each) { return each.value; });
}

QStringList ChoiceSetting::labels() const {
    return toQt(setting().choices, [](const SettingChoice& each) { return each.label; });
}

QStringList ChoiceSetting::details() const {
    return toQt(setting().choices, [](const SettingChoice& each) { return each.detail; });
}

}  // namespace tidewright::ui
