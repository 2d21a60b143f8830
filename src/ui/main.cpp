#include <QClipboard>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>
#include <csignal>
#include <string>

#include "gateway/Assembly.h"
#include "platform/SystemRandom.h"
#include "platform/UncaughtException.h"
#include "ui/ControlWindow.h"
#include "ui/Fonts.h"
#include "ui/OpenDisplay.h"
#include "ui/QtMainLoop.h"
#include "ui/TerminationSignals.h"

using namespace tidewright;

namespace {

/// The software renderer needs a third of the memory; Qt's own variables choose another.
void chooseRenderer() {
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND") &&
        qEnvironmentVariableIsEmpty("QSG_RHI_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 64})
        icon.addFile(QStringLiteral(":/icons/%1.png").arg(size), {size, size});
    return icon;
}

void setClipboard(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);  // a reader that went away is not a reason to stop
    platform::endWhenResourcesRunOut();
    QGuiApplication::setApplicationName(QStringLiteral("Tidewright"));
    QGuiApplication::setApplicationVersion(QStringLiteral(TIDEWRIGHT_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.tidewright.Tidewright"));
    chooseRenderer();
    const auto application = ui::openDisplay(argc, argv);
    QGuiApplication::setWindowIcon(programIcon());
    ui::loadFonts();
    const ui::TerminationSignals termination(&QGuiApplication::quit);

    platform::SystemRandom random;
    ui::QtMainLoop loop;
    gateway::Assembly assembly(gateway::Host::machine(loop, loop, random, setClipboard));
    const ui::ControlWindow window(assembly, loop, setClipboard);
    return QGuiApplication::exec();
}
