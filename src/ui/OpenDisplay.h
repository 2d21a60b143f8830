#pragma once

#include <memory>

class QGuiApplication;

namespace tidewright::ui {

/// Makes the application object. Where no display can be opened, says so in one French line on
/// standard error, naming --headless, and ends the process with exit status 1, where Qt by itself
/// would abort.
std::unique_ptr<QGuiApplication> openDisplay(int& argc, char** argv);

}  // namespace tidewright::ui
