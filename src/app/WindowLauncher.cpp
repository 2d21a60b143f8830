#include "app/WindowLauncher.h"

#include <unistd.h>

#include <filesystem>

#include "app/ExecutablePath.h"
#include "platform/StandardError.h"

namespace tidewright::app {

namespace {

constexpr const char* windowProgram = "tidewright-window";

/// Replaces the process; comes back if it cannot.
void execute(const std::filesystem::path& program, const Arguments& arguments) {
    std::vector<char*> list;
    for (const std::string& each : arguments) list.push_back(const_cast<char*>(each.c_str()));
    list.push_back(nullptr);
    ::execv(program.c_str(), list.data());
}

}  // namespace

void becomeWindow(const Arguments& arguments) {
    const std::filesystem::path here = executablePath().parent_path();
    if (here.is_absolute()) {  // never from the current folder: anybody may have put a program
                               // there
        execute(here / windowProgram, arguments);
        execute(here / TIDEWRIGHT_LIBEXEC_FROM_BIN / windowProgram, arguments);
    }
    platform::writeStandardError(
        "La fenêtre de contrôle n'est pas installée. Pour émettre sans fenêtre : tidewright "
        "--headless\n");
}

}  // namespace tidewright::app
