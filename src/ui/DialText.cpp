#include "ui/DialText.h"

#include <fmt/printf.h>

#include <QLocale>
#include <QRegularExpression>
#include <limits>
#include <string>

namespace tidewright::ui {

QString DialText::of(const QString& format, double value, const QString& unit) {
    const QString number = QString::fromStdString(fmt::sprintf(format.toStdString(), value));
    if (unit.isEmpty()) return number;
    return unit == QStringLiteral("°") ? number + unit : number + QLatin1Char(' ') + unit;
}

double DialText::number(const QString& text, const QString& unit) {
    static const QRegularExpression decimal(QStringLiteral("^[+-]?[0-9]+([.,][0-9]+)?$"));
    QString digits = text.trimmed();
    if (digits.endsWith(unit)) digits = digits.chopped(unit.size()).trimmed();
    if (!decimal.match(digits).hasMatch()) return std::numeric_limits<double>::quiet_NaN();
    return QLocale::c().toDouble(digits.replace(QLatin1Char(','), QLatin1Char('.')));
}

}  // namespace tidewright::ui
