#include "ui/Fonts.h"

#include <QDirIterator>
#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>

namespace tidewright::ui {

void loadFonts() {
    for (QDirIterator each(QStringLiteral(":/fonts")); each.hasNext();)
        QFontDatabase::addApplicationFont(each.next());
    QGuiApplication::setFont(QFont(QStringLiteral("Inter")));
}

}  // namespace tidewright::ui
