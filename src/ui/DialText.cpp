#include "ui/DialText.h"

#include <fmt/printf.h>

#include <string>

namespace tidewright::ui {

QString DialText::of(const QString& format, double value, const QString& unit) {
    const QString number = QString::fromStdString(fmt::sprintf(format.toStdString(), value));
    return unit == QStringLiteral("°") ? number + unit : number + QLatin1Char(' ') + unit;
}

}  // namespace tidewright::ui
