#include "app/CommandLine.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>
#include <utility>

#include "app/Option.h"
#include "gateway/NearestName.h"
#include "platform/DecimalNumber.h"

namespace tidewright::app {

namespace {

using simulation::WindRange;

/// `text` without its leading "+"; empty, thus no number, if another sign follows.
std::string_view withoutPlus(std::string_view text) {
    if (!text.starts_with('+')) return text;
    text.remove_prefix(1);
    return text.starts_with('-') ? std::string_view() : text;
}

/// The name of the option that `argument` is, and the value that it brings by "=", if any.
std::pair<std::string_view, std::optional<std::string>> split(std::string_view argument) {
    const auto sign = argument.find('=');
    const Option* named = option(argument.substr(0, sign));
    if (sign == std::string_view::npos || !named || !named->isStrict) return {argument, {}};
    return {named->name, std::string(argument.substr(sign + 1))};
}

/// One option as it stands on the command line, with its value where it takes one.
struct GivenOption {
    const Option* option;
    std::string value;
};

/// Reads the whole command line as it is meant, and says of the first mistake what it is.
class StrictReader {
public:
    explicit StrictReader(const Arguments& arguments) : arguments_(arguments) {
        for (std::size_t i = 1; i < arguments_.size() && !problem_; ++i) read(i);
    }

    const std::vector<GivenOption>& given() const { return given_; }
    const std::optional<std::string>& problem() const { return problem_; }

private:
    void read(std::size_t& i) {
        auto [name, value] = split(arguments_[i]);
        const Option* named = option(name);
        if (!named) return reportUnknown(name);
        const bool isRepeated =
            std::ranges::find(given_, named, &GivenOption::option) != given_.end();
        if (isRepeated && !named->mayRepeat)
            return report(fmt::format("{} est donnée deux fois.", name));
        if (named->valueName.french.empty()) {
            if (value) return report(fmt::format("{} ne prend pas de valeur.", name));
        } else {
            const bool isFollowed = i + 1 < arguments_.size() && !option(arguments_[i + 1]);
            if (!value && isFollowed) value = arguments_[++i];
            if (!value)
                return report(fmt::format("{} attend une valeur : {}.", name, named->readable));
            if (!named->reads(*value)) return reportUnreadable(*named, *value);
        }
        given_.push_back({named, value.value_or("")});
    }

    void reportUnknown(std::string_view name) {
        std::vector<std::string_view> names;
        for (const Option& each : allOptions()) names.push_back(each.name);
        report(fmt::format("« {} » n'est pas une option ; la plus proche est {}.", name,
                           gateway::nearestName(name, names)));
    }

    void reportUnreadable(const Option& named, const std::string& value) {
        std::string allowed(named.readable);
        if (!named.words.empty()) {
            const std::vector<std::string_view> words(named.words.begin(), named.words.end());
            allowed = fmt::format("{} ; le plus proche est {}", fmt::join(words, ", "),
                                  gateway::nearestName(value, words));
        }
        report(
            fmt::format("{} : « {} » ne peut être lu ; il faut {}.", named.name, value, allowed));
    }

    void report(std::string problem) { problem_ = std::move(problem); }

    const Arguments& arguments_;
    std::vector<GivenOption> given_;
    std::optional<std::string> problem_;
};

}  // namespace

bool CommandLine::contains(std::string_view option, const Arguments& arguments) {
    return std::ranges::find(arguments, option) != arguments.end();
}

std::optional<std::string> CommandLine::value(std::string_view option, const Arguments& arguments) {
    const auto found = std::ranges::find(arguments, option);
    if (found == arguments.end() || found + 1 == arguments.end()) return std::nullopt;
    return *(found + 1);
}

std::optional<std::int64_t> CommandLine::integer(std::string_view text) {
    text = withoutPlus(text);
    std::int64_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

std::optional<std::uint16_t> CommandLine::port(std::string_view text) {
    const auto number = integer(text);
    if (!number || *number < 0 || *number > std::numeric_limits<std::uint16_t>::max())
        return std::nullopt;
    return static_cast<std::uint16_t>(*number);
}

std::optional<double> CommandLine::decimal(std::string_view text) {
    if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return std::nullopt;
    return platform::decimalNumber(withoutPlus(text));
}

std::optional<WindRange> CommandLine::windRange(std::string_view text) {
    std::vector<double> numbers;
    while (!text.empty()) {
        const auto dash = text.find('-');
        if (const auto number = decimal(text.substr(0, dash))) numbers.push_back(*number);
        if (dash == std::string_view::npos) break;
        text.remove_prefix(dash + 1);
    }
    if (numbers.size() != 2 || !(numbers[0] < numbers[1])) return std::nullopt;
    return WindRange{.low = numbers[0], .high = numbers[1]};
}

bool CommandLine::isStrict(const Arguments& arguments) {
    return std::ranges::any_of(arguments, [](const std::string& argument) {
        const Option* named = option(split(argument).first);
        return named && named->isStrict;
    });
}

std::optional<std::string> CommandLine::problem(const Arguments& arguments) {
    if (!isStrict(arguments)) return std::nullopt;
    const StrictReader reader(arguments);
    if (reader.problem()) return reader.problem();
    const bool isHeadless = contains("--headless", arguments);
    for (const GivenOption& each : reader.given())
        if (each.option->isStrict && !each.option->isQuestion && !isHeadless)
            return fmt::format("{} ne va qu'avec --headless.", each.option->name);
    return std::nullopt;
}

std::optional<std::string> CommandLine::given(std::string_view option, const Arguments& arguments) {
    if (!isStrict(arguments)) return std::nullopt;
    const StrictReader reader(arguments);
    for (const auto& [named, text] : reader.given())
        if (named->name == option) return text;
    return std::nullopt;
}

gateway::Settings::Texts CommandLine::settings(const Arguments& arguments) {
    gateway::Settings::Texts texts;
    if (!isStrict(arguments)) return texts;
    const StrictReader reader(arguments);
    for (const auto& [given, text] : reader.given()) {
        if (given->name != "--set") continue;
        const auto sign = text.find('=');
        texts.emplace_back(text.substr(0, sign), text.substr(sign + 1));
    }
    return texts;
}

void CommandLine::apply(const Arguments& arguments, gateway::SimulationConfig& config,
                        simulation::BoatSimulationEngine& engine) {
    for (const Option& each : allOptions()) {
        if (!each.apply) continue;
        if (!each.reads) {
            if (contains(each.name, arguments)) each.apply({}, config, engine);
        } else if (const auto text = value(each.name, arguments); text && each.reads(*text)) {
            each.apply(*text, config, engine);
        }
    }
}

std::optional<std::string> CommandLine::applyAll(const Arguments& arguments,
                                                 gateway::Assembly& assembly) {
    apply(arguments, assembly.config, assembly.engine);
    return gateway::reasons(assembly.settings.writeTexts(settings(arguments)));
}

}  // namespace tidewright::app
