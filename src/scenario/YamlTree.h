#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/Mistake.h"

namespace tidewright::scenario {

struct YamlEntry;

/// A value of a YAML text, with all that it holds.
struct YamlNode {
    enum class Kind { null, text, list, map };

    Kind kind = Kind::null;
    std::size_t offset = 0;  ///< where it begins, in bytes; without a text of its own, what follows
    std::string text;        ///< of a text, whatever it may mean: nothing is made of numbers
    std::vector<YamlNode> items;  ///< of a list
    std::vector<YamlEntry>
        entries;  ///< of a map, in the text's order; each key is a text, and one of its own
};

struct YamlEntry {
    YamlNode key;
    YamlNode value;

    /// Where to point for what is wrong with the value: at the key where there is none.
    std::size_t valueOffset() const {
        return value.kind == YamlNode::Kind::null ? key.offset : value.offset;
    }
};

/// What a text holds, where it is YAML, and what is wrong with it, in its order.
struct YamlReading {
    std::optional<YamlNode> root;
    std::vector<Mistake> mistakes;
};

/// Reads `text`, which is UTF-8 without stray characters, as one YAML document. Aliases become
/// copies of what they stand for; of all values, copies included, there may be half a million.
YamlReading readYaml(std::string_view text);

}  // namespace tidewright::scenario
