#include "scenario/ScenarioFile.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace tidewright::scenario {

namespace {

/// A mark that some editors put in front of UTF-8.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Nothing where it cannot be read; one byte too many where it is too large.
std::optional<std::string> contentOf(const std::string& path) {
    std::error_code unknown;
    if (std::filesystem::is_directory(path, unknown)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    std::string content(largestScenario + 1, '\0');
    if (!file.read(content.data(), static_cast<std::streamsize>(content.size())) && !file.eof())
        return std::nullopt;
    content.resize(static_cast<std::size_t>(file.gcount()));
    return content;
}

/// Why the file there cannot be read, in French.
std::string obstacleAt(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found)
        return fmt::format("{} n'existe pas.", path);
    if (std::filesystem::is_directory(status)) return fmt::format("{} est un dossier.", path);
    return fmt::format("{} ne peut être lu.", path);
}

ScenarioFile refused(const std::string& why) {
    return {.scenario = std::nullopt, .complaint = fmt::format("ERREUR : {}\n", why)};
}

}  // namespace

ScenarioFile readScenarioFile(const std::string& path, const RunOptions& options) {
    const auto content = contentOf(path);
    if (!content) return refused(obstacleAt(path));
    if (content->size() > largestScenario)
        return refused(fmt::format("{} dépasse 1 Mio, le plus qu'un scénario peut tenir.", path));
    std::string_view text = *content;
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    ScenarioReading reading = readScenario(text, options);
    if (reading.scenario) return {.scenario = std::move(reading.scenario), .complaint = {}};
    return {.scenario = std::nullopt,
            .complaint = mistakesText(path, text, std::move(reading.mistakes))};
}

}  // namespace tidewright::scenario
