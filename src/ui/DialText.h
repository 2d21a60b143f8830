#pragma once

#include <QString>
#include <string_view>

namespace tidewright::ui {

/// A number as the window shows it, always with a decimal point, whatever the desktop's language,
/// and its unit, after a space unless it is a degree sign.
QString dialText(double value, int decimals, std::string_view unit);

/// The number that a user typed, with a point or a comma, blanks around it, and perhaps its unit
/// behind it; not a number for other texts.
double dialNumber(const QString& text, const QString& unit);

}  // namespace tidewright::ui
