#include "app/Help.h"

#include <fmt/format.h>

#include <string_view>

#include "app/Option.h"

namespace tidewright::app {

namespace {

constexpr std::size_t effectColumn = 30;

std::string lineAbout(const Option& option) {
    const std::string given =
        fmt::format("  {}{}{}", option.name, option.valueName.french.empty() ? "" : " ",
                    option.valueName.french);
    std::string line = fmt::format("{:<{}}{}", given, effectColumn, option.effect.french);
    if (!option.otherwise.empty()) line += fmt::format(" ({})", option.otherwise);
    if (!option.words.empty())
        line += fmt::format(" :\n{:{}}{}", "", effectColumn, fmt::join(option.words, ", "));
    return line + "\n";
}

std::string linesAbout(bool questions) {
    std::string lines;
    for (const Option& each : allOptions())
        if (each.isQuestion == questions && each.name != "--headless") lines += lineAbout(each);
    return lines;
}

}  // namespace

std::string versionText() {
    return "Tidewright " TIDEWRIGHT_VERSION "\n";
}

std::string helpText() {
    return fmt::format(
        R"(Tidewright : un voilier simulé et sa passerelle NMEA Wi-Fi, pour essayer une
application de navigation sans bateau.

  tidewright                  ouvre la fenêtre de contrôle
  tidewright --headless       émet sans fenêtre, jusqu'à Ctrl-C

Options, avec --headless :
{}
Sans lui aussi :
{})",
        linesAbout(false), linesAbout(true));
}

}  // namespace tidewright::app
