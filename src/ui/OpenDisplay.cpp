#include "ui/OpenDisplay.h"

#include <unistd.h>

#include <QGuiApplication>
#include <string_view>

namespace tidewright::ui {

namespace {

constexpr std::string_view noDisplay =
    "Aucun affichage disponible pour ouvrir la fenêtre. Pour émettre sans fenêtre : tidewright "
    "--headless\n";

/// Qt's last word before it would abort; what it warns of on the way there only repeats it.
void giveUp(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    [[maybe_unused]] const auto written =
        ::write(STDERR_FILENO, noDisplay.data(), noDisplay.size());
    ::_exit(1);
}

}  // namespace

std::unique_ptr<QGuiApplication> openDisplay(int& argc, char** argv) {
    const QtMessageHandler usual = qInstallMessageHandler(giveUp);
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    qInstallMessageHandler(usual);
    return application;
}

}  // namespace tidewright::ui
