#include "scenario/Quantity.h"

#include <algorithm>
#include <cmath>

namespace tidewright::scenario {

namespace {

using gateway::Assembly;
using Reading = std::optional<double>;

Reading anchorDistance(const Assembly& assembly) {
    const auto& anchor = assembly.engine.anchor();
    if (assembly.engine.mode != simulation::ControlMode::anchor || !anchor) return std::nullopt;
    return std::hypot(anchor->east, anchor->north);
}

}  // namespace

const std::array<Quantity, 6> quantities{
    {{.name = "clients",
      .unit = "",
      .read = [](const Assembly& assembly) -> Reading {
          return static_cast<double>(assembly.gateway.tcpClients->size());
      }},
     {.name = "sentences",
      .unit = "",
      .read = [](const Assembly& assembly) -> Reading {
          return static_cast<double>(assembly.gateway.sentSentences());
      }},
     {.name = "connections",
      .unit = "",
      .read = [](const Assembly& assembly) -> Reading {
          return static_cast<double>(assembly.gateway.connections());
      }},
     {.name = "sog",
      .unit = "nd",
      .read = [](const Assembly& assembly) -> Reading { return assembly.engine.state->sog; },
      .isOfTheBoat = true},
     {.name = "depth",
      .unit = "m",
      .read = [](const Assembly& assembly) -> Reading { return assembly.engine.state->depth; },
      .isOfTheBoat = true},
     {.name = "anchor-distance",
      .unit = "m",
      .read = anchorDistance,
      .isOfTheBoat = true,
      .needsAnchor = true}}};

const Quantity* findQuantity(std::string_view name) {
    const auto* found = std::ranges::find(quantities, name, &Quantity::name);
    return found == quantities.end() ? nullptr : found;
}

}  // namespace tidewright::scenario
