#pragma once

#include "app/CommandLine.h"

namespace tidewright::app {

/// The headless program on this machine: its loop, its clock and chance or a run's own, its
/// sockets, files and interrupts. Goes on until interrupted or until the run is over, and answers
/// the exit status; an interrupt ends the process by its signal.
int runHeadless(const Arguments& arguments);

}  // namespace tidewright::app
