#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "gateway/GatewaySimulator.h"
#include "gateway/ReplayPace.h"
#include "network/LineSource.h"
#include "platform/Lifetime.h"
#include "platform/PacedMainLoop.h"

namespace tidewright::gateway {

/// Sends recorded lines through a gateway, one made for lines from elsewhere (Host::replays), at
/// the pace at which they were recorded.
///
/// It begins with the loop's first turn. While the gateway is stopped it pauses, and goes on from
/// there after the next start. Lines that come after they are due, from a pipe for instance, leave
/// at once, and those that follow count from there.
class Replay {
public:
    struct Options {
        bool loops = false;  ///< begins the file again, a second after the last line

        /// The run's time stands still while lines are awaited: for a run without a speed, which
        /// would be far ahead when they come.
        bool holdsRun = false;

        /// Called by the loop once the last line has left delivery, too; `hadLines`: whether there
        /// was one at all. It may not destroy the replay.
        std::function<void(bool hadLines)> ended = {};
    };

    /// `loop`, the gateway's own, and `gateway` must outlive this.
    Replay(platform::PacedMainLoop& loop, GatewaySimulator& gateway,
           std::unique_ptr<network::LineSource> source, Options options);

private:
    /// Why no more lines leave together.
    enum class Pause { batchIsFull, nextIsNotDue, noneHasCome, noneIsLeft };

    void followGateway();
    void wakeWhenDue();
    void takeTurn();
    Pause gather(std::vector<std::string>& lines);
    void hold(std::string line);
    void goOnAfter(Pause pause);
    void awaitMore();
    void takeMore();
    void finish();
    void awaitDelivery();

    platform::PacedMainLoop& loop_;
    GatewaySimulator& gateway_;
    std::unique_ptr<network::LineSource> source_;
    Options options_;
    ReplayPace pace_;
    std::optional<std::string> next_;          // line, where it was read already
    platform::Instant due_;                    // when it leaves, or the one before it did
    platform::MainLoop::Duration respite_{0};  // before the next line, beside its pace
    std::optional<platform::Instant> stoppedAt_;
    std::uint64_t wait_ = 0;  // the number of the latest; those before it are over
    bool awaitsMore_ = false;
    bool hadLines_ = false;
    bool hasLinesThisTime_ = false;
    bool hasEnded_ = false;
    platform::Subscription gatewayChanges_;
    platform::Lifetime lifetime_;
};

}  // namespace tidewright::gateway
