#include "scenario/Expectation.h"

#include <fmt/format.h>

#include <cmath>

#include "platform/DecimalNumber.h"

namespace tidewright::scenario {

namespace {

bool isDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string withUnit(std::string_view number, const Quantity& quantity) {
    return fmt::format("{}{}{}", number, quantity.isCount() ? "" : " ", quantity.unit);
}

}  // namespace

std::optional<Bound> Bound::parse(std::string_view text, const Quantity& quantity) {
    const auto point = text.find('.');
    const bool isWhole = point == std::string_view::npos;
    if (!isDigits(text.substr(0, point))) return std::nullopt;
    if (!isWhole && (quantity.isCount() || !isDigits(text.substr(point + 1)))) return std::nullopt;
    const auto value = platform::decimalNumber(text);
    if (!value) return std::nullopt;
    const double decimals = isWhole ? 0 : static_cast<double>(text.size() - point - 1);
    return Bound{.value = *value,
                 .halfDigit = quantity.isCount() ? 0 : 0.5 * std::pow(10, -decimals),
                 .text = std::string(text)};
}

Expectation Expectation::equal(const Quantity& quantity, const Bound& bound) {
    return {.quantity = &quantity,
            .from = bound.value - bound.halfDigit,
            .to = bound.value + bound.halfDigit,
            .wanted = withUnit(bound.text, quantity)};
}

Expectation Expectation::between(const Quantity& quantity, const std::optional<Bound>& least,
                                 const std::optional<Bound>& most) {
    Expectation made{.quantity = &quantity};
    if (least) made.from = least->value;
    if (most) made.to = most->value;
    const std::string text = !most    ? "au moins " + least->text
                             : !least ? "au plus " + most->text
                                      : fmt::format("de {} à {}", least->text, most->text);
    made.wanted = withUnit(text, quantity);
    return made;
}

bool Expectation::holds(const gateway::Assembly& assembly) const {
    const auto value = quantity->read(assembly);
    return value && from <= *value && *value <= to;
}

std::string Expectation::found(const gateway::Assembly& assembly) const {
    const auto value = quantity->read(assembly);
    if (!value) return fmt::format("{} ne peut être jugé", quantity->name);
    const std::string number =
        quantity->isCount() ? fmt::format("{:.0f}", *value) : fmt::format("{:.3f}", *value);
    return fmt::format("{} = {}", quantity->name, withUnit(number, *quantity));
}

}  // namespace tidewright::scenario
