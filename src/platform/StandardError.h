#pragma once

#include <string_view>

namespace tidewright::platform {

/// Writes `text` to standard error as it stands, in one write where the system takes it whole.
/// Failures are silent: there is nowhere left to tell.
void writeStandardError(std::string_view text);

}  // namespace tidewright::platform
