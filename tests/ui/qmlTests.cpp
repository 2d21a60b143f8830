#include <QQmlEngine>
#include <QtQuickTest>

#include "WindowBench.h"
#include "ui/Fonts.h"

void qml_register_types_Tidewright();

/// Prepares the engine of the QML tests: the window's types, its typefaces, and the bench.
class Setup : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable() {
        tidewright::ui::loadFonts();
        qml_register_types_Tidewright();
        qmlRegisterType<tidewright::ui::WindowBench>("TidewrightTest", 1, 0, "WindowBench");
    }
};

QUICK_TEST_MAIN_WITH_SETUP(window, Setup)

#include "qmlTests.moc"
