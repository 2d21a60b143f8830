#include "gateway/NearestName.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

#include "platform/Check.h"

namespace tidewright::gateway {

namespace {

/// The edit distance of Damerau and Levenshtein, neighbours swapped once at most.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> twoAgo(b.size() + 1);
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        twoAgo.swap(last);
        last.swap(row);
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t change = a[i - 1] == b[j - 1] ? 0 : 1;
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + change});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], twoAgo[j - 2] + 1);
        }
    }
    return row[b.size()];
}

}  // namespace

std::string_view nearestName(std::string_view word, const std::vector<std::string_view>& names) {
    platform::check(!names.empty(), "there must be names to choose from");
    word = word.substr(0, 100);  // nobody means more
    return *std::ranges::min_element(
        names, {}, [word](std::string_view name) { return distance(word, name); });
}

}  // namespace tidewright::gateway
