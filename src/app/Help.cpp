#include "app/Help.h"

#include <fmt/format.h>

#include "gateway/GatewayPreset.h"

namespace tidewright::app {

namespace {

std::string presetIds() {
    std::string ids;
    for (const auto& preset : gateway::GatewayPreset::all)
        ids += (ids.empty() ? "" : ", ") + std::string(preset.id);
    return ids;
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
  --preset NOM                imite une passerelle :
                              {}
  --tcp-port PORT             port TCP, 1 à 65535 (2000)
  --udp-port PORT             port UDP, 0 à 65535 (2000)
  --no-tcp, --no-udp          coupe cette sortie
  --ais NOMBRE                navires AIS simulés (5)
  --program NOM               sequence, beat, reach ou run (sequence)
  --wind-range MIN-MAX        vent en nœuds, par exemple 8-16
  --polar POURCENT            part de la polaire atteinte, 70 à 115 (100)
  --no-steps                  sans les paliers d'équipage

  --help, --version           cette aide, la version
)",
        presetIds());
}

}  // namespace tidewright::app
