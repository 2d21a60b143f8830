#include "Golden.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <iostream>
#include <utility>

#include "platform/DecimalNumber.h"

namespace tidewright::golden {

namespace {

constexpr int shownFailures = 40;
int failureCount = 0;

void note(const std::string& message) {
    if (++failureCount <= shownFailures) std::cout << "  DIFFERS  " << message << '\n';
}

std::string unescaped(std::string_view cell) {
    std::string text;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (cell[i] != '\\' || i + 1 == cell.size()) {
            text += cell[i];
            continue;
        }
        switch (cell[++i]) {
            case 'n':
                text += '\n';
                break;
            case 'r':
                text += '\r';
                break;
            case 't':
                text += '\t';
                break;
            default:
                text += cell[i];
        }
    }
    return text;
}

std::vector<std::string> cellsOf(std::string_view line) {
    std::vector<std::string> cells;
    while (true) {
        const auto tab = line.find('\t');
        cells.push_back(unescaped(line.substr(0, tab)));
        if (tab == std::string_view::npos) return cells;
        line.remove_prefix(tab + 1);
    }
}

template <typename Number>
std::optional<Number> wholeNumber(std::string_view digits, int base = 10) {
    Number number{};
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number, base);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

bool near(double expected, double actual, double tolerance) {
    return expected == actual || std::abs(expected - actual) <= tolerance;
}

}  // namespace

Row::Row(const Table& table, std::size_t line, std::vector<std::string> cells)
    : table_(&table), line_(line), cells_(std::move(cells)) {}

template <typename Number>
Number Row::read(std::string_view column, std::optional<Number> number) const {
    if (!number)
        throw Unreadable(fmt::format("{}:{}  {}: not such a number: \"{}\"", table_->name(), line_,
                                     column, cell(column)));
    return *number;
}

double Row::number(std::string_view column) const {
    return read(column, platform::decimalNumber(cell(column)));
}

std::optional<double> Row::optionalNumber(std::string_view column) const {
    if (!has(column)) return std::nullopt;
    return number(column);
}

std::int64_t Row::integer(std::string_view column) const {
    return read(column, wholeNumber<std::int64_t>(cell(column)));
}

std::uint64_t Row::natural(std::string_view column) const {
    return read(column, wholeNumber<std::uint64_t>(cell(column)));
}

std::uint64_t Row::hex(std::string_view column) const {
    std::string_view digits = cell(column);
    digits.remove_prefix(digits.starts_with("0x") ? 2 : digits.size());
    return read(column, wholeNumber<std::uint64_t>(digits, 16));
}

void Row::expectText(std::string_view column, std::string_view actual) const {
    if (cell(column) != actual)
        fail(fmt::format("{}: expected \"{}\", got \"{}\"", column, cell(column), actual));
}

void Row::expectInteger(std::string_view column, std::int64_t actual) const {
    if (integer(column) != actual)
        fail(fmt::format("{}: expected {}, got {}", column, cell(column), actual));
}

void Row::expectNatural(std::string_view column, std::uint64_t actual) const {
    if (natural(column) != actual)
        fail(fmt::format("{}: expected {}, got {}", column, cell(column), actual));
}

void Row::expectFlag(std::string_view column, bool actual) const {
    expectInteger(column, actual ? 1 : 0);
}

void Row::expectHex(std::string_view column, std::uint64_t actual) const {
    if (hex(column) != actual)
        fail(fmt::format("{}: expected {}, got 0x{:016X}", column, cell(column), actual));
}

void Row::expectExactly(std::string_view column, double actual) const {
    expectNear(column, actual, 0);
}

void Row::expectNear(std::string_view column, double actual, double tolerance) const {
    if (!near(number(column), actual, tolerance))
        fail(fmt::format("{}: expected {}, got {}", column, cell(column), actual));
}

void Row::expectClose(std::string_view column, double actual) const {
    expectNear(column, actual, 1e-12 * std::max(1.0, std::abs(number(column))));
}

void Row::expectAngle(std::string_view column, double actual, double tolerance) const {
    const double apart = std::abs(std::remainder(number(column) - actual, 360.0));
    if (!(apart <= tolerance))
        fail(fmt::format("{}: expected {}, got {}", column, cell(column), actual));
}

void Row::fail(const std::string& message) const {
    note(fmt::format("{}:{}  {}", table_->name(), line_, message));
}

const std::string& Row::cell(std::string_view column) const {
    const auto& columns = table_->columns();
    const auto found = std::ranges::find(columns, column);
    if (found == columns.end())
        throw Unreadable(fmt::format("table {} has no column {}", table_->name(), column));
    return cells_[static_cast<std::size_t>(found - columns.begin())];
}

Table::Table(std::string name, std::istream& input) : name_(std::move(name)) {
    std::string line;
    if (!std::getline(input, line)) throw Unreadable("table " + name_ + " is empty");
    columns_ = cellsOf(line);
    for (std::size_t number = 2; std::getline(input, line); ++number) {
        auto cells = cellsOf(line);
        if (cells.size() != columns_.size())
            throw Unreadable(fmt::format("{}:{} has {} cells for {} columns", name_, number,
                                         cells.size(), columns_.size()));
        rows_.emplace_back(*this, number, std::move(cells));
    }
    if (rows_.empty()) throw Unreadable("table " + name_ + " is empty");
    taken_.resize(rows_.size());
}

std::size_t Table::taken() const {
    return static_cast<std::size_t>(std::ranges::count(taken_, true));
}

const std::vector<Row>& Table::rows() {
    taken_.assign(rows_.size(), true);
    return rows_;
}

std::vector<Row> Table::rowsWhere(std::string_view column, std::string_view value) {
    std::vector<Row> found;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (rows_[i].text(column) != value) continue;
        taken_[i] = true;
        found.push_back(rows_[i]);
    }
    return found;
}

Tables::Tables(const std::filesystem::path& directory) {
    if (!std::filesystem::is_directory(directory))
        throw Unreadable("no such directory: " + directory.string());
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        const auto& file = entry.path();
        if (file.extension() != ".tsv") continue;
        const std::string name = file.stem().string();
        std::ifstream input(file);
        tables_.try_emplace(name, name, input);
    }
}

Table& Tables::operator[](const std::string& name) {
    if (Table* table = find(name)) return *table;
    throw Unreadable("table " + name + " is missing");
}

Table* Tables::find(const std::string& name) {
    const auto found = tables_.find(name);
    return found == tables_.end() ? nullptr : &found->second;
}

void Tables::report() const {
    std::size_t total = 0;
    for (const auto& [name, table] : tables_) {
        std::cout << fmt::format("  {:<24}{:>7} rows compared\n", name, table.taken());
        total += table.taken();
        if (table.taken() == 0)
            note("table " + name + " is not known to this runner");
        else if (table.taken() < table.size())
            note(fmt::format("table {} has {} rows that nothing compared", name,
                             table.size() - table.taken()));
    }
    std::cout << fmt::format("  {} tables, {} rows, {} differences\n", tables_.size(), total,
                             failureCount);
}

int failures() {
    return failureCount;
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    while (!text.empty()) {
        const auto end = text.find(separator);
        if (end != 0) pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return pieces;
}

}  // namespace tidewright::golden
