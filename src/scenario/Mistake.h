#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tidewright::scenario {

/// Something wrong with a text: where, in bytes from its beginning, and what, in French.
struct Mistake {
    std::size_t offset = 0;
    std::string text;

    bool operator==(const Mistake&) const = default;
};

/// As people count: lines and characters from 1. A line ends with LF, CR or CR LF.
struct Place {
    std::size_t line = 1;
    std::size_t column = 1;

    bool operator==(const Place&) const = default;
};

/// The place of `offset`, at most the size of `text`, which is UTF-8.
Place placeIn(std::string_view text, std::size_t offset);

/// The first byte that is not UTF-8, or the first control character other than a tab and the ends
/// of lines; nothing where all is well.
std::optional<Mistake> strayCharacter(std::string_view text);

/// `text` as one line: each run of control characters and blanks becomes a blank, and none is left
/// at its ends.
std::string oneLine(std::string_view text);

/// The most mistakes that are told at once.
inline constexpr std::size_t mostMistakes = 20;

/// Each of the first mistakes in `text`, a line "FILE:LINE:COLUMN: …" in their order there, and a
/// last one that counts them. `mistakes` must not be empty.
std::string mistakesText(const std::string& file, std::string_view text,
                         std::vector<Mistake> mistakes);

}  // namespace tidewright::scenario
