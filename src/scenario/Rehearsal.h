#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "gateway/Assembly.h"
#include "platform/VirtualMainLoop.h"
#include "simulation/SeededRandom.h"

namespace tidewright::scenario {

/// What a scenario sets, one after the other, on a gateway that never runs and reaches nothing:
/// what is refused here would be refused in the run.
class Rehearsal {
public:
    Rehearsal();

    gateway::Assembly& assembly() { return assembly_; }

    /// Makes the settings as they are now those that the action "reset" goes back to.
    void begin() { assembly_.settings.keepForReset(); }

    /// Writes all of these that are not refused; why the others are.
    std::vector<gateway::Refusal> set(gateway::Settings::Texts texts);

    /// Does what the action of that name would change of the settings.
    void perform(std::string_view action);

    bool isAtAnchor() const;

private:
    platform::VirtualMainLoop loop_;
    simulation::SeededRandom random_{0};
    gateway::Assembly assembly_;
};

}  // namespace tidewright::scenario
