#include "gateway/ConsoleLog.h"

#include <fmt/format.h>

#include <chrono>
#include <utility>

namespace tidewright::gateway {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\n\v\f\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool continuesACharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// `text`, or its beginning where it is too long, up to the end of a UTF-8 character.
std::string shortened(std::string_view text) {
    constexpr std::size_t longestTail = 3;  // of the bytes after a character's first
    if (text.size() <= ConsoleLog::longestText) return std::string(text);
    std::size_t end = ConsoleLog::longestText;
    while (end > ConsoleLog::longestText - longestTail && continuesACharacter(text[end])) --end;
    return std::string(text.substr(0, end)) + "…";
}

std::string clockText(platform::WallTime local) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(local);
    const std::chrono::hh_mm_ss clock(seconds - std::chrono::floor<std::chrono::days>(seconds));
    return fmt::format("{:02}:{:02}:{:02}", clock.hours().count(), clock.minutes().count(),
                       clock.seconds().count());
}

}  // namespace

std::string ConsoleLine::copyText() const {
    return fmt::format("{} {} > {}", time, transport, text);
}

ConsoleLog::ConsoleLog(platform::RandomSource& random, platform::UtcOffset utcOffset)
    : random_(random), utcOffset_(std::move(utcOffset)) {}

void ConsoleLog::append(platform::WallTime now, std::string_view transport, std::string_view text) {
    const std::uint64_t high = random_.bits();
    const std::uint64_t low = random_.bits();
    lines_.push_back({.id = {high, low},
                      .time = clockText(now + utcOffset_(now)),
                      .transport = std::string(transport),
                      .text = shortened(trimmed(text)),
                      .missedBefore = std::exchange(missedSinceLast_, 0)});
    ++appendedCount_;
    if (lines_.size() > capacity) lines_.pop_front();
}

void ConsoleLog::miss() {
    ++missedCount_;
    ++missedSinceLast_;
}

std::string ConsoleLog::asText() const {
    std::string all;
    for (const ConsoleLine& line : lines_) {
        if (!all.empty()) all += '\n';
        all += line.copyText();
    }
    return all;
}

}  // namespace tidewright::gateway
