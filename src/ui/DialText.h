#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

namespace tidewright::ui {

/// Numbers as the window shows them: always with a decimal point, whatever the desktop's language.
class DialText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// `value` in a printf format for one double, as in "%.1f", and its unit, after a space unless
    /// it is a degree sign.
    Q_INVOKABLE static QString of(const QString& format, double value, const QString& unit);

    /// The number that a user typed, with a point or a comma, blanks around it, and perhaps its
    /// unit behind it; not a number for other texts.
    Q_INVOKABLE static double number(const QString& text, const QString& unit);
};

}  // namespace tidewright::ui
