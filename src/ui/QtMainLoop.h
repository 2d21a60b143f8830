#pragma once

#include <QObject>

#include "platform/MainLoop.h"

namespace tidewright::ui {

/// The loop of the control window: Qt's own, which the application object runs. Timers keep their
/// grid while a slider is dragged. Make it after the application object, on the same thread.
class QtMainLoop final : public platform::MainLoop {
public:
    platform::Instant now() const override;
    platform::WallTime wallClock() const override;
    [[nodiscard]] platform::Subscription every(Duration period, Task task) override;
    void after(Duration delay, Task task) override;
    void post(Task task) override;

private:
    QObject mainThread_;  // what is delayed or posted dies with it
};

}  // namespace tidewright::ui
