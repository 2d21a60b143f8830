#include "ui/DialText.h"

#include <fmt/printf.h>

#include <string>

namespace tidewright::ui {

QString DialText::of(const QString& format, double value) {
    return QString::fromStdString(fmt::sprintf(format.toStdString(), value));
}

}  // namespace tidewright::ui
