#pragma once

#include <algorithm>
#include <optional>
#include <string_view>

namespace tidewright::simulation {

/// The one of `cases` whose rawValue() is `text`; nothing when none is.
template <typename Cases>
auto fromRawValue(const Cases& cases, std::string_view text)
    -> std::optional<typename Cases::value_type> {
    const auto found = std::ranges::find_if(
        cases, [text](typename Cases::value_type each) { return rawValue(each) == text; });
    if (found == cases.end()) return std::nullopt;
    return *found;
}

}  // namespace tidewright::simulation
