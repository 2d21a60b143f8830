#pragma once

namespace tidewright::ui {

/// Makes the typefaces that come with the program known to Qt and the reading face the default, so
/// that the window looks the same on every machine. Call it once, after the application object is
/// made.
void loadFonts();

}  // namespace tidewright::ui
