#pragma once

#include <cstdint>
#include <filesystem>
#include <istream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tidewright::golden {

class Table;

/// Thrown, with the place and the reason, where a table does not hold what is asked of it: its form
/// is wrong, it lacks a column, or a cell is not the number that was wanted.
struct Unreadable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// One line of a table.
class Row {
public:
    Row(const Table& table, std::size_t line, std::vector<std::string> cells);

    bool has(std::string_view column) const { return !cell(column).empty(); }
    const std::string& text(std::string_view column) const { return cell(column); }
    double number(std::string_view column) const;
    std::optional<double> optionalNumber(std::string_view column) const;
    std::int64_t integer(std::string_view column) const;
    std::uint64_t natural(std::string_view column) const;
    std::uint64_t hex(std::string_view column) const;  ///< with its "0x"
    bool flag(std::string_view column) const { return integer(column) != 0; }

    // Each compares what the program gives with the column and notes a difference.
    void expectText(std::string_view column, std::string_view actual) const;
    void expectInteger(std::string_view column, std::int64_t actual) const;
    void expectNatural(std::string_view column, std::uint64_t actual) const;
    void expectFlag(std::string_view column, bool actual) const;
    void expectHex(std::string_view column, std::uint64_t actual) const;
    void expectExactly(std::string_view column, double actual) const;
    /// Within `tolerance`, in the column's unit.
    void expectNear(std::string_view column, double actual, double tolerance) const;
    /// Within 1e-12 x max(1, expected).
    void expectClose(std::string_view column, double actual) const;
    /// As expectNear, modulo 360.
    void expectAngle(std::string_view column, double actual, double tolerance) const;

    /// Notes a difference that is not about one column.
    void fail(const std::string& message) const;

private:
    const std::string& cell(std::string_view column) const;
    template <typename Number>
    Number read(std::string_view column, std::optional<Number> number) const;

    const Table* table_;
    std::size_t line_;
    std::vector<std::string> cells_;
};

/// A table, with a count of the rows that were taken out of it for comparison.
class Table {
public:
    /// Reads tab-separated cells, first the line of the columns' names; at least one row must
    /// follow.
    Table(std::string name, std::istream& input);
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    const std::string& name() const { return name_; }
    const std::vector<std::string>& columns() const { return columns_; }
    std::size_t size() const { return rows_.size(); }
    std::size_t taken() const;

    /// All rows.
    const std::vector<Row>& rows();
    /// The rows whose `column` holds `value`, in order.
    std::vector<Row> rowsWhere(std::string_view column, std::string_view value);

private:
    std::string name_;
    std::vector<std::string> columns_;
    std::vector<Row> rows_;
    std::vector<bool> taken_;  // a flag a row
};

/// The tables of a directory.
class Tables {
public:
    explicit Tables(const std::filesystem::path& directory);

    /// Throws Unreadable if there is no such table.
    Table& operator[](const std::string& name);
    /// Null if there is no such table.
    Table* find(const std::string& name);
    /// Prints the count of rows per table and notes the tables of which a row was left over.
    void report() const;

private:
    std::map<std::string, Table> tables_;
};

/// The differences noted so far.
int failures();

/// The pieces of `text` between `separator`s, empty ones dropped.
std::vector<std::string> split(std::string_view text, char separator);

// One function a subject, each in its own file.
void compareChance(Tables& tables);
void compareWind(Tables& tables);
void compareKinematics(Tables& tables);
void compareSailing(Tables& tables);
void compareAnchor(Tables& tables);
void compareEngine(Tables& tables);
void compareTraffic(Tables& tables);
void compareNMEA(Tables& tables);
void compareAIS(Tables& tables);
void compareGateway(Tables& tables);
void compareNetwork(Tables& tables);
void compareCommandLine(Tables& tables);

}  // namespace tidewright::golden
