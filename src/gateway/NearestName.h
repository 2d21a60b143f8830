#pragma once

#include <string_view>
#include <vector>

namespace tidewright::gateway {

/// The one of `names` that `word` was most probably meant to be: the fewest letters to add, leave
/// out, change or swap with the next. `names` must not be empty; of equals, the first.
std::string_view nearestName(std::string_view word, const std::vector<std::string_view>& names);

}  // namespace tidewright::gateway
