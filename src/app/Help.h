#pragma once

#include <string>

namespace tidewright::app {

/// What --help and --version print, in French, for standard output.
std::string helpText();
std::string versionText();

}  // namespace tidewright::app
