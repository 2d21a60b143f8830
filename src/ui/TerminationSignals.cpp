#include "ui/TerminationSignals.h"

#include <unistd.h>

#include <array>
#include <csignal>
#include <utility>

#include "platform/Check.h"

namespace tidewright::ui {

namespace {

constexpr std::array requests{SIGINT, SIGTERM, SIGHUP};

/// What a signal handler may safely do: write to a pipe that the main loop reads.
std::array<int, 2> wakeUp{-1, -1};

int openPipe() {
    platform::check(::pipe(wakeUp.data()) == 0, "the host gives no pipe");
    return wakeUp[0];
}

void handle(int) {
    const char anything = 0;
    [[maybe_unused]] const auto written = ::write(wakeUp[1], &anything, 1);
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> requested)
    : arrival_(openPipe(), QSocketNotifier::Read) {
    QObject::connect(&arrival_, &QSocketNotifier::activated, std::move(requested));
    for (const int each : requests) {
        const auto before = std::signal(each, handle);
        if (each == SIGHUP && before == SIG_IGN) std::signal(SIGHUP, SIG_IGN);
    }
}

TerminationSignals::~TerminationSignals() {
    for (const int each : requests) std::signal(each, SIG_DFL);
    ::close(wakeUp[0]);
    ::close(wakeUp[1]);
}

}  // namespace tidewright::ui
