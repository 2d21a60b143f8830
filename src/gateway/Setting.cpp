#include "gateway/Setting.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "platform/Check.h"
#include "platform/DecimalNumber.h"

namespace tidewright::gateway {

namespace {

using simulation::Position;

constexpr std::string_view digits = "0123456789";

/// An optional minus, digits, and where there is a point, digits again.
bool isPlainNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    const auto point = text.find('.');
    const auto isAllDigits = [](std::string_view part) {
        return !part.empty() && part.find_first_not_of(digits) == std::string_view::npos;
    };
    return isAllDigits(text.substr(0, point)) &&
           (point == std::string_view::npos || isAllDigits(text.substr(point + 1)));
}

std::optional<double> number(std::string_view text) {
    if (!isPlainNumber(text)) return std::nullopt;
    return platform::decimalNumber(text);
}

std::optional<std::int64_t> integer(std::string_view text) {
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end) return std::nullopt;
    return value;
}

std::optional<bool> flag(std::string_view text) {
    if (text == "true") return true;
    if (text == "false") return false;
    return std::nullopt;
}

std::optional<Position> position(std::string_view text) {
    const auto comma = text.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    const auto latitude = number(text.substr(0, comma));
    const auto longitude = number(text.substr(comma + 1));
    if (!latitude || !longitude) return std::nullopt;
    return Position{.latitude = *latitude, .longitude = *longitude};
}

template <typename Value>
std::optional<SettingValue> asSetting(const std::optional<Value>& value) {
    if (!value) return std::nullopt;
    return SettingValue(*value);
}

std::optional<SettingValue> valueOfKind(SettingKind kind, std::string_view text) {
    switch (kind) {
        case SettingKind::flag:
            return asSetting(flag(text));
        case SettingKind::integer:
            return asSetting(integer(text));
        case SettingKind::number:
            return asSetting(number(text));
        case SettingKind::choice:
        case SettingKind::text:
            return SettingValue(std::string(text));
        case SettingKind::position:
            return asSetting(position(text));
    }
    platform::fail("no such kind of setting");
}

std::string numberText(double value) {
    std::array<char, 400> buffer{};  // the longest double without exponent
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed);
    return {buffer.data(), end.ptr};
}

bool isWithin(const SettingRange& range, double value) {
    return range.from <= value && value <= range.to;
}

struct Fits {
    const Setting& setting;

    bool operator()(bool) const { return setting.kind == SettingKind::flag; }
    bool operator()(std::int64_t value) const {
        return setting.kind == SettingKind::integer &&
               isWithin(setting.range, static_cast<double>(value));
    }
    bool operator()(double value) const {
        return setting.kind == SettingKind::number && isWithin(setting.range, value);
    }
    bool operator()(const std::string& value) const {
        const bool isChoice = std::ranges::find(setting.choices, value, &SettingChoice::value) !=
                              setting.choices.end();
        if (setting.kind == SettingKind::choice) return isChoice;
        return setting.kind == SettingKind::text && (isChoice || setting.isText(value));
    }
    bool operator()(const Position& value) const {
        return setting.kind == SettingKind::position && std::abs(value.latitude) <= 90 &&
               std::abs(value.longitude) <= 180;
    }
};

struct Text {
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(double value) const { return numberText(value); }
    std::string operator()(const std::string& value) const { return value; }
    std::string operator()(const Position& value) const {
        return numberText(value.latitude) + "," + numberText(value.longitude);
    }
};

}  // namespace

std::string_view rawValue(SettingKind kind) {
    switch (kind) {
        case SettingKind::flag:
            return "flag";
        case SettingKind::integer:
            return "integer";
        case SettingKind::number:
            return "number";
        case SettingKind::choice:
            return "choice";
        case SettingKind::text:
            return "text";
        case SettingKind::position:
            return "position";
    }
    platform::fail("no such kind of setting");
}

std::string_view rawValue(SettingActs acts) {
    return acts == SettingActs::now ? "now" : "next-start";
}

bool Setting::fits(const SettingValue& value) const {
    return std::visit(Fits{*this}, value);
}

std::optional<SettingValue> Setting::parse(std::string_view text) const {
    const auto value = valueOfKind(kind, text);
    return value && fits(*value) ? value : std::nullopt;
}

std::string Setting::rangeText() const {
    std::vector<std::string> words;
    for (const SettingChoice& each : choices) words.push_back(each.value);
    switch (kind) {
        case SettingKind::integer:
        case SettingKind::number:
            return fmt::format("{} à {}{}{}", numberText(range.from), numberText(range.to),
                               range.unit.empty() || range.unit == "°" ? "" : " ", range.unit);
        case SettingKind::text:
            words.push_back(otherTexts);
            [[fallthrough]];
        case SettingKind::choice:
            return fmt::format("{}", fmt::join(words, ", "));
        default:
            return {};
    }
}

std::string Setting::allowed() const {
    switch (kind) {
        case SettingKind::flag:
            return "true ou false";
        case SettingKind::integer:
            return "un nombre entier de " + rangeText();
        case SettingKind::number:
            return "un nombre de " + rangeText();
        case SettingKind::choice:
        case SettingKind::text:
            return "l'un de : " + rangeText();
        case SettingKind::position:
            return "LATITUDE,LONGITUDE en degrés décimaux, négatifs au sud et à l'ouest";
    }
    platform::fail("no such kind of setting");
}

std::string textOf(const SettingValue& value) {
    return std::visit(Text{}, value);
}

}  // namespace tidewright::gateway
