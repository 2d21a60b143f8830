#pragma once

#include <filesystem>

namespace tidewright::app {

/// Where the running program lies on disk, links resolved; empty if the host cannot tell.
std::filesystem::path executablePath();

}  // namespace tidewright::app
