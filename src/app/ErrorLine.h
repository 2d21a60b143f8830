#pragma once

#include <string>

namespace tidewright::app {

/// What standard error shows before a program ends that could not do what was asked.
inline std::string errorLine(const std::string& text) {
    return "ERREUR : " + text + "\n";
}

}  // namespace tidewright::app
