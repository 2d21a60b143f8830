#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "gateway/Assembly.h"
#include "platform/Lifetime.h"
#include "platform/PacedMainLoop.h"
#include "scenario/Scenario.h"

namespace tidewright::scenario {

/// Plays a scenario on a gateway, in the run's own time. Its steps come ahead of everything else
/// that is due at their instant: nothing due at the very end is sent where end() stops the gateway.
class ScenarioRunner {
public:
    static constexpr auto lookPeriod = std::chrono::milliseconds(50);

    /// What the runner tells. It must not be destroyed from inside either.
    struct Reports {
        std::function<void(std::string_view)> write;  ///< one line, with its LF
        std::function<void(int status)> end;          ///< the run is over: 0, or 3 where it failed
    };

    /// `loop` and `assembly` must outlive this. The scenario's own `set`, seed, start and speed are
    /// its reader's business.
    ScenarioRunner(platform::PacedMainLoop& loop, gateway::Assembly& assembly, Scenario scenario,
                   Reports reports);

    /// Plays what is due at the start, which is now, and from here on the rest. Call it once, right
    /// after the gateway was started.
    void begin();

    /// Whether every step was played, or one that ends the run.
    bool isComplete() const { return isOver_ || next_ == scenario_.steps.size(); }

    /// Whether the gateway is stopped because a step wanted that.
    bool stoppedOnPurpose() const { return isStopWanted_ && !assembly_.gateway.isRunning; }

private:
    using Duration = platform::MainLoop::Duration;

    void proceed();
    Duration playNext();
    Duration timeUntil(const Step& step) const;
    void work(const Step& step);
    std::string write(const gateway::Settings::Texts& texts, std::string& problem);
    std::string perform(const std::string& action, std::string& problem);
    Duration look(const Step& step);
    void report(const Step& step);
    void complete(const Step& step);
    void fail(std::string_view why);
    void writeLine(std::string_view text);
    std::string clock() const;

    platform::PacedMainLoop& loop_;
    gateway::Assembly& assembly_;
    Scenario scenario_;
    Reports reports_;
    platform::Instant start_;
    platform::Instant lastStep_;  // when the latest was complete
    std::size_t next_ = 0;
    bool isLooking_ = false;  // the next step's work is done, what it expects may still come
    bool isStopWanted_ = false;
    bool isOver_ = false;
    platform::Lifetime lifetime_;
};

}  // namespace tidewright::scenario
