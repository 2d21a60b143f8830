#include "app/SettingsList.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "gateway/Assembly.h"
#include "platform/SystemRandom.h"
#include "platform/VirtualMainLoop.h"

namespace tidewright::app {

namespace {

using Row = std::array<std::string, 6>;

Row rowOf(const gateway::Setting& setting) {
    const std::string range = setting.rangeText();
    return {setting.name,
            std::string(rawValue(setting.kind)),
            gateway::textOf(setting.initial),
            range.empty() ? "-" : range,
            std::string(rawValue(setting.acts)),
            setting.label};
}

/// In characters, as a terminal shows them.
std::size_t width(const std::string& text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char each) { return (static_cast<unsigned char>(each) & 0xC0U) != 0x80U; }));
}

}  // namespace

std::string settingsList() {
    platform::VirtualMainLoop loop;
    platform::SystemRandom random;
    const gateway::Assembly fresh(gateway::Host::machine(loop, loop, random, {}));
    std::vector<Row> rows;
    std::array<std::size_t, 6> widths{};
    for (const gateway::Setting& each : fresh.settings.all()) {
        rows.push_back(rowOf(each));
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], width(rows.back()[i]));
    }
    std::string list;
    for (const Row& row : rows) {
        for (std::size_t i = 0; i + 1 < row.size(); ++i)
            list += row[i] + std::string(widths[i] - width(row[i]) + 2, ' ');
        list += row.back() + "\n";
    }
    return list;
}

}  // namespace tidewright::app
