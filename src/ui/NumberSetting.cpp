#include "ui/NumberSetting.h"

#include <cmath>
#include <limits>

#include "ui/DialText.h"
#include "ui/Texts.h"

namespace tidewright::ui {

namespace {

gateway::SettingValue valueOf(double number, bool isWhole) {
    if (!isWhole) return number;
    return static_cast<std::int64_t>(std::llround(number));
}

}  // namespace

double NumberSetting::value() const {
    return isWhole() ? static_cast<double>(shown<std::int64_t>()) : shown<double>();
}

QString NumberSetting::text() const {
    return shownAs(value());
}

double NumberSetting::to() const {
    return setting().range.dialTo.value_or(setting().range.to);
}

QString NumberSetting::range() const {
    const int decimals = step() < 1 ? 1 : 0;
    return dialText(from(), decimals, "") + QString::fromUtf8(" à ") + shownAs(setting().range.to);
}

QString NumberSetting::shownAs(double number) const {
    return dialText(number, step() < 1 ? 1 : 0, setting().range.unit);
}

void NumberSetting::setValue(double value) {
    if (std::isfinite(value)) drag(valueOf(value, isWhole()));
}

double NumberSetting::read(const QString& text) const {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    const double number = dialNumber(text, toQt(setting().range.unit));
    if (!std::isfinite(number) || (isWhole() && number != std::floor(number))) return none;
    return setting().fits(valueOf(number, isWhole())) ? number : none;
}

}  // namespace tidewright::ui
