#pragma once

#include <functional>
#include <memory>

#include "platform/MainLoop.h"

namespace tidewright::platform {

/// The loop of the headless program, on the machine's own clocks.
class AsioMainLoop final : public MainLoop {
public:
    AsioMainLoop();
    ~AsioMainLoop() override;

    Instant now() const override;
    WallTime wallClock() const override;
    [[nodiscard]] Subscription every(Duration period, Task task) override;
    void after(Duration delay, Task task) override;
    void post(Task task) override;

    /// Repeating timers stand still until resume(), as if the thread were held up; everything else
    /// goes on.
    void hold();
    void resume();

    /// From now on an interrupt (SIGINT, SIGTERM), but not one that the program was started to
    /// ignore, calls `task` with its number, once, instead of ending the program. The next one ends
    /// it.
    void onInterrupt(std::function<void(int signal)> task);

    /// Runs tasks on the calling thread until stop() is called.
    void run();

    /// Makes run() return after the task under way. Any thread may call it.
    void stop();

private:
    struct Core;
    std::unique_ptr<Core> core_;
};

}  // namespace tidewright::platform
