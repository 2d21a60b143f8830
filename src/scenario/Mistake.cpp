#include "scenario/Mistake.h"

#include <fmt/format.h>

#include <algorithm>

#include "platform/Check.h"

namespace tidewright::scenario {

namespace {

constexpr std::size_t longestLine = 500;

bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// How many bytes the character that begins with `first` has; 0 where none does.
std::size_t sizeOfCharacter(unsigned char first) {
    if (first < 0x80) return 1;
    if (0xC2 <= first && first <= 0xDF) return 2;
    if (0xE0 <= first && first <= 0xEF) return 3;
    if (0xF0 <= first && first <= 0xF4) return 4;
    return 0;
}

/// Whether what follows the first byte is too small a number for so many bytes, too large for any
/// character, or half of a pair.
bool isOutOfRange(unsigned char first, unsigned char second) {
    return (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
           (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
}

/// The size of the character that `text` begins with; 0 where that is not UTF-8.
std::size_t characterSize(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t size = sizeOfCharacter(first);
    if (size > text.size() || !std::ranges::all_of(text.substr(1, size ? size - 1 : 0), continues))
        return 0;
    if (size > 2 && isOutOfRange(first, static_cast<unsigned char>(text[1]))) return 0;
    return size;
}

bool isControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1) return first < 0x20 || first == 0x7F;
    return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
}

bool isAllowedControl(std::string_view character) {
    return character == "\t" || character == "\n" || character == "\r" || character == "\u0085";
}

/// The beginning of `text`, where it is too long for a line.
std::string_view shortened(std::string_view text) {
    if (text.size() <= longestLine) return text;
    std::size_t end = longestLine;
    while (continues(text[end])) --end;
    return text.substr(0, end);
}

}  // namespace

Place placeIn(std::string_view text, std::size_t offset) {
    Place place;
    for (std::size_t i = 0; i < offset; ++i) {
        const bool endsLine =
            text[i] == '\n' || (text[i] == '\r' && !text.substr(i + 1).starts_with('\n'));
        if (endsLine)
            place = {.line = place.line + 1, .column = 1};
        else if (!continues(text[i]))
            ++place.column;
    }
    return place;
}

std::optional<Mistake> strayCharacter(std::string_view text) {
    std::size_t offset = 0;
    while (offset < text.size()) {
        const auto character = text.substr(offset, characterSize(text.substr(offset)));
        if (character.empty()) return Mistake{offset, "ce n'est pas de l'UTF-8."};
        if (isControl(character) && !isAllowedControl(character))
            return Mistake{offset, "un caractère de commande n'a pas sa place ici."};
        offset += character.size();
    }
    return std::nullopt;
}

std::string oneLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const auto character = text.substr(0, std::max<std::size_t>(characterSize(text), 1));
        text.remove_prefix(character.size());
        if (!isControl(character) && character != " ")
            line += character;
        else if (!line.empty() && !line.ends_with(' '))
            line += ' ';
    }
    if (line.ends_with(' ')) line.pop_back();
    return line;
}

std::string mistakesText(const std::string& file, std::string_view text,
                         std::vector<Mistake> mistakes) {
    platform::check(!mistakes.empty(), "there must be mistakes to tell");
    std::ranges::stable_sort(mistakes, {}, &Mistake::offset);
    mistakes.erase(std::unique(mistakes.begin(), mistakes.end()), mistakes.end());
    mistakes.resize(std::min(mistakes.size(), mostMistakes));
    std::string lines;
    for (const auto& [offset, what] : mistakes) {
        const Place place = placeIn(text, offset);
        const std::string line = oneLine(what);
        lines += fmt::format("{}:{}:{}: {}\n", file, place.line, place.column, shortened(line));
    }
    return lines + fmt::format("ERREUR : {} faute{} dans {}\n", mistakes.size(),
                               mistakes.size() == 1 ? "" : "s", file);
}

}  // namespace tidewright::scenario
