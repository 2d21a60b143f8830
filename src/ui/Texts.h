#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

namespace tidewright::ui {

/// UTF-8 text of the core as Qt has it.
inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// What `text` answers for each of `cases`, in their order.
template <typename Cases, typename Text>
QStringList toQt(const Cases& cases, Text text) {
    QStringList all;
    for (const auto& each : cases) all.append(toQt(text(each)));
    return all;
}

}  // namespace tidewright::ui
