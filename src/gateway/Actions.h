#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/GatewaySimulator.h"
#include "gateway/Settings.h"
#include "simulation/BoatSimulationEngine.h"

namespace tidewright::gateway {

/// Something that a person can have done at once.
struct Action {
    std::string name;   ///< as scripts write it, as in "drop-clients"
    std::string label;  ///< for the user, in French

    /// Why it cannot be done now, in French; nothing where it can.
    std::function<std::optional<std::string>()> obstacle;

    /// Does it, where nothing stands in its way; why it could not be done, in French, else.
    std::function<std::optional<std::string>()> perform;
};

/// Every action, declared once.
class Actions {
public:
    /// The arguments must outlive this.
    Actions(Settings& settings, simulation::BoatSimulationEngine& engine,
            GatewaySimulator& gateway);

    const std::vector<Action>& all() const { return all_; }

    /// Null where there is none of that name.
    const Action* find(std::string_view name) const;

private:
    std::vector<Action> all_;
};

}  // namespace tidewright::gateway
