#include <csignal>
#include <cstdio>
#include <string>

#include "app/CommandLine.h"
#include "app/ErrorLine.h"
#include "app/HeadlessProgram.h"
#include "app/Help.h"
#include "app/SettingsList.h"
#include "app/WindowLauncher.h"
#include "platform/StandardError.h"
#include "platform/UncaughtException.h"

using namespace tidewright::app;

namespace {

/// The exit status: 1 where standard output does not take it all.
int print(const std::string& text) {
    return std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0 ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);  // standard error may be a pipe that nobody reads any more
    std::signal(SIGXFSZ, SIG_IGN);  // a recording that grew too large fails as a full disk does
    tidewright::platform::endWhenResourcesRunOut();
    const Arguments arguments(argv, argv + argc);
    if (const auto problem = CommandLine::problem(arguments)) {
        tidewright::platform::writeStandardError(errorLine(*problem));
        return 2;
    }
    if (CommandLine::contains("--settings", arguments)) return print(settingsList());
    if (CommandLine::contains("--headless", arguments)) return runHeadless(arguments);
    if (CommandLine::contains("--help", arguments)) return print(helpText());
    if (CommandLine::contains("--version", arguments)) return print(versionText());
    becomeWindow(arguments);
    return 1;
}
