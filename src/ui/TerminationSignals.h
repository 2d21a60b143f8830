#pragma once

#include <QSocketNotifier>
#include <functional>

namespace tidewright::ui {

/// Turns SIGINT, SIGTERM and SIGHUP into a call on the main thread, so that the program can end as
/// when its window is closed. A SIGHUP that the program was started to ignore stays ignored. One
/// for the life of the process.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> requested);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    QSocketNotifier arrival_;
};

}  // namespace tidewright::ui
