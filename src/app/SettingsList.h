#pragma once

#include <string>

namespace tidewright::app {

/// What --settings prints, a setting a line: name, kind, default, range or choices ("-": all that
/// the kind allows), when it acts, label; two blanks or more between.
std::string settingsList();

}  // namespace tidewright::app
