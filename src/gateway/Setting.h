#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "simulation/Position.h"

namespace tidewright::gateway {

/// In the order of SettingKind, but that `choice` and `text` are both texts.
using SettingValue = std::variant<bool, std::int64_t, double, std::string, simulation::Position>;

enum class SettingKind { flag, integer, number, choice, text, position };

/// As in "flag".
std::string_view rawValue(SettingKind kind);

/// When a new value takes effect.
enum class SettingActs { now, nextStart };

/// "now" or "next-start".
std::string_view rawValue(SettingActs acts);

/// What an integer or a number may be, both ends included.
struct SettingRange {
    double from = 0;
    double to = 0;
    double step = 1;             ///< of sliders and steppers; binds nothing else
    std::string_view unit = {};  ///< as shown behind the number; empty: none

    /// How far sliders and steppers go, where that is less than `to`.
    std::optional<double> dialTo = std::nullopt;
};

/// One of the values that a choice offers.
struct SettingChoice {
    std::string value;  ///< as scripts write it
    std::string label;  ///< for the user, in French
    std::string detail = {};
};

/// One value that a person can change: what it is called, what it may be, how to read and write it.
struct Setting {
    std::string name;   ///< as scripts write it, as in "anchor.chain-length"
    std::string label;  ///< for the user, in French
    SettingKind kind = SettingKind::flag;
    std::function<SettingValue()> read;

    /// Takes a value that fits.
    std::function<void(const SettingValue&)> write;

    SettingRange range = {};                       ///< of an integer or a number
    std::vector<SettingChoice> choices = {};       ///< of a choice; the words that a text may be
    bool (*isText)(const std::string&) = nullptr;  ///< which other texts a text may be
    std::string otherTexts = {};                   ///< what these are, in French
    SettingActs acts = SettingActs::now;

    /// May be switched while the gateway runs, though that does not do everything at once.
    bool isFreeWhileRunning = false;

    /// As write(), for a value that somebody drags: moves what stands in its way.
    std::function<void(const SettingValue&)> drag = write;

    std::string group = {};     ///< for the user, in French
    SettingValue initial = {};  ///< the default

    /// Whether this setting may have that value.
    bool fits(const SettingValue& value) const;

    /// The value that `text` means here; nothing where it means none, or one that does not fit.
    std::optional<SettingValue> parse(std::string_view text) const;

    /// The range or the choices, as in "0 à 20 Hz" or "auto, manual, anchor"; empty where all is
    /// said by the kind.
    std::string rangeText() const;

    /// What parse() takes, in French, to stand after "il faut".
    std::string allowed() const;
};

/// As parse() reads it: "true", "-5", "0.4", "47.4,-3.55".
std::string textOf(const SettingValue& value);

}  // namespace tidewright::gateway
