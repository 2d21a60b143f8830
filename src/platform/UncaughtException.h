#pragma once

namespace tidewright::platform {

/// From now on, memory, descriptors or other resources that run out anywhere, on any thread, end
/// the program at once with one line on standard error, in French, and exit status 1. Any other
/// exception that nobody catches aborts it, as before.
void endWhenResourcesRunOut();

}  // namespace tidewright::platform
