#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "faults/FailureInjection.h"
#include "gateway/GatewaySimulator.h"
#include "gateway/Setting.h"
#include "gateway/SimulationConfig.h"
#include "platform/Observable.h"
#include "simulation/BoatSimulationEngine.h"

namespace tidewright::gateway {

/// Why a setting was not written: a French sentence that names it, the value and what is allowed.
struct Refusal {
    std::string name;
    std::string reason;
};

/// The reasons of these, in one line; nothing where nothing was refused.
std::optional<std::string> reasons(const std::vector<Refusal>& refusals);

/// Every value that a person can change, declared once: command line, window, documentation and
/// tests read this list. Its observers are told when any of them may have changed.
class Settings : public platform::Observable {
public:
    using Texts = std::vector<std::pair<std::string, std::string>>;
    using Values = std::vector<std::pair<std::string, SettingValue>>;

    /// The defaults are what the arguments, which must outlive this, hold now.
    Settings(SimulationConfig& config, faults::FailureInjection& faults,
             simulation::BoatSimulationEngine& engine, GatewaySimulator& gateway);

    /// In the order in which people read them, group by group.
    const std::vector<Setting>& all() const { return all_; }

    /// Null where there is none of that name.
    const Setting* find(std::string_view name) const;

    /// The setting of that name, which must be one.
    const Setting& at(std::string_view name) const;

    /// Writes all of these, judged together, or, where any is refused, none. The preset is written
    /// first, then the others in their order. Empty: all are written.
    [[nodiscard]] std::vector<Refusal> write(const Values& values);

    /// The same, for values as scripts write them.
    [[nodiscard]] std::vector<Refusal> writeTexts(const Texts& texts);

    /// The faults that are on: not at their defaults.
    std::vector<const Setting*> activeFaults() const;

    /// Takes every fault back to its default.
    void clearFaults();

    /// Makes what every setting holds now the values that reset() goes back to.
    void keepForReset();

    /// Takes every setting back to its value at the last keepForReset(), or to its default.
    void reset();

private:
    using Rows = std::vector<Setting>;

    void add(std::string_view group, Rows rows);
    Refusal unknown(std::string_view name) const;
    std::optional<Refusal> windProblem(const Values& values) const;

    std::vector<Setting> all_;
    std::vector<SettingValue> kept_;
    platform::Subscription configChanges_;
    platform::Subscription faultChanges_;
    platform::Subscription engineChanges_;
};

}  // namespace tidewright::gateway
