#include "ui/DialText.h"

#include <fmt/format.h>

#include <QLocale>
#include <QRegularExpression>
#include <limits>

#include "ui/Texts.h"

namespace tidewright::ui {

QString dialText(double value, int decimals, std::string_view unit) {
    const bool isApart = !unit.empty() && unit != "°";
    return toQt(fmt::format("{:.{}f}{}{}", value, decimals, isApart ? " " : "", unit));
}

double dialNumber(const QString& text, const QString& unit) {
    static const QRegularExpression decimal(QStringLiteral("^[+-]?[0-9]+([.,][0-9]+)?$"));
    QString digits = text.trimmed();
    if (digits.endsWith(unit)) digits = digits.chopped(unit.size()).trimmed();
    if (!decimal.match(digits).hasMatch()) return std::numeric_limits<double>::quiet_NaN();
    return QLocale::c().toDouble(digits.replace(QLatin1Char(','), QLatin1Char('.')));
}

}  // namespace tidewright::ui
