#include <algorithm>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>

#include "FuzzInput.h"
#include "golden_runner/Golden.h"
#include "platform/Check.h"

namespace tidewright::fuzz {

using golden::Row;
using golden::Table;
using platform::check;

namespace {

/// What `read` gives, or nothing where it says that the cell is unreadable.
template <typename Read>
auto readable(Read read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const golden::Unreadable& error) {
        check(!std::string_view(error.what()).empty(), "an error says what is wrong");
        return std::nullopt;
    }
}

bool agreesWithItself(const Row& row, const std::string& column, double number) {
    const int before = golden::failures();
    row.expectExactly(column, number);
    row.expectClose(column, number);
    return golden::failures() == before;
}

void checkCell(const Row& row, const std::string& column) {
    const std::string text = row.text(column);
    check(row.has(column) != text.empty(), "a cell is there or empty");
    const auto natural = readable([&] { return row.natural(column); });
    const auto integer = readable([&] { return row.integer(column); });
    const auto number = readable([&] { return row.number(column); });
    const auto hex = readable([&] { return row.hex(column); });
    if (natural) check(number.has_value(), "a natural number is a number");
    if (integer) check(std::to_string(*integer).size() <= text.size(), "a number has its digits");
    if (hex) check(text.starts_with("0x"), "a hexadecimal number has its prefix");
    if (number && *number == *number)
        check(agreesWithItself(row, column, *number), "a number is close to itself");
}

void checkRows(Table& table) {
    for (const Row& row : table.rows())
        for (const std::string& column : table.columns()) checkCell(row, column);
    check(table.taken() == table.size(), "all rows are taken");
    check(!readable([&] { return table.rows().front().text("no\tsuch column"); }),
          "a column that is not there cannot be read");
    const std::string& first = table.columns().front();
    const auto like = table.rowsWhere(first, table.rows().front().text(first));
    check(!like.empty() && like.size() <= table.size(), "a row is found by what it holds");
}

}  // namespace

void tryInput(FuzzInput input) {
    const std::string text(input.rest());
    std::istringstream lines(text);
    try {
        Table table("fuzzed", lines);
        check(0 < table.size() &&
                  table.size() <= static_cast<std::size_t>(std::ranges::count(text, '\n')),
              "a table has a row and no more than its lines");
        checkRows(table);
    } catch (const golden::Unreadable& error) {
        check(!std::string_view(error.what()).empty(), "an error says what is wrong");
    }
    for (const auto& piece : golden::split(text, '|'))
        check(!piece.empty() && piece.find('|') == std::string::npos, "a piece is between bars");
}

}  // namespace tidewright::fuzz
