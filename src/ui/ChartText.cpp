#include "ui/ChartText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "simulation/EarthModel.h"

namespace tidewright::ui {

namespace {

constexpr std::size_t mostVesselsNamed = 3;

std::string distance(double metres) {
    if (metres < 0.1 * simulation::metresPerNauticalMile) return fmt::format("{:.0f} m", metres);
    return fmt::format("{:.1f} NM", metres / simulation::metresPerNauticalMile);
}

/// Three digits, as a bearing is spoken; a full turn is no turn.
std::string bearing(double degrees) {
    return fmt::format("{:03}°", std::lround(degrees) % 360);
}

std::string anchorage(const ChartAnchorage& anchorage, ChartPlace boat) {
    return fmt::format(
        "Au mouillage, à {} de l'ancre, qui est au {} ; cercle d'évitage de {:.0f} m, "
        "chaîne de {:.0f} m.",
        distance(offset(anchorage.anchor, boat).length()),
        bearing(offset(boat, anchorage.anchor).bearing()), anchorage.swingRadius,
        anchorage.chainOut);
}

std::string track(std::chrono::seconds time) {
    const auto minutes = std::chrono::floor<std::chrono::minutes>(time).count();
    if (minutes < 1) return "Trace de moins d'une minute.";
    if (minutes == 1) return "Trace de la dernière minute.";
    return fmt::format("Trace des {} dernières minutes.", minutes);
}

std::string vessels(const ChartScene& scene) {
    if (scene.vessels.empty()) return "Aucun navire AIS.";
    std::vector<std::string> named;
    for (std::size_t i = 0; i < std::min(scene.vessels.size(), mostVesselsNamed); ++i) {
        const ChartOffset way = offset(scene.boat, scene.vessels[i].place);
        named.push_back(fmt::format("{} à {} au {}", scene.vessels[i].name, distance(way.length()),
                                    bearing(way.bearing())));
    }
    return fmt::format("{} : {}.",
                       scene.vessels.size() == 1 ? "Navire AIS" : "Navires AIS les plus proches",
                       fmt::join(named, ", "));
}

}  // namespace

std::string describe(const ChartScene& scene, double width) {
    std::string text = fmt::format("Nord en haut, {} d'ouest en est. Bateau au cap {}.",
                                   distance(width), bearing(scene.heading));
    if (scene.anchorage) text += ' ' + anchorage(*scene.anchorage, scene.boat);
    if (!scene.track.empty()) text += ' ' + track(scene.trackTime);
    return text + ' ' + vessels(scene);
}

}  // namespace tidewright::ui
