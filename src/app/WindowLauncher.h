#pragma once

#include "app/CommandLine.h"

namespace tidewright::app {

/// Turns the process into the control window's program, with the same arguments. Comes back only
/// where that program is missing or cannot run; it has then said so on standard error, in French,
/// naming --headless.
void becomeWindow(const Arguments& arguments);

}  // namespace tidewright::app
