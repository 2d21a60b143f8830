#include "ui/ConsoleModel.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "ui/Texts.h"

namespace tidewright::ui {

namespace {

gateway::ConsoleLine missedNote(std::uint64_t count, std::string time) {
    return {.id = {},
            .time = std::move(time),
            .transport = "···",
            .text = count == 1 ? "1 ligne manquée pendant la pause"
                               : fmt::format("{} lignes manquées pendant la pause", count)};
}

QString shown(const std::string& text) {
    QString whole = toQt(text);
    if (whole.size() <= ConsoleModel::longestText) return whole;
    return whole.left(ConsoleModel::longestText - 1) + QChar(u'…');
}

}  // namespace

ConsoleModel::ConsoleModel(const gateway::GatewaySimulator& simulator, QObject* parent)
    : QObject(parent), simulator_(simulator), selection_(this) {
    update();
}

double ConsoleModel::begin() const {
    return static_cast<double>(lines_.empty() ? end_ : lines_.front().firstRow);
}

double ConsoleModel::newest() const {
    return lines_.empty() ? 0 : static_cast<double>(removed_ + lines_.size());
}

double ConsoleModel::newestLine() const {
    return newest();
}

void ConsoleModel::setColumns(int columns) {
    if (columns == columns_ || columns < 1) return;
    columns_ = columns;
    for (Line& line : lines_) line.firstRow = std::exchange(end_, end_ + rowsFor(line.text));
    Q_EMIT rewrapped();
    Q_EMIT changed();
}

std::uint64_t ConsoleModel::rowsFor(const QString& text) const {
    return text.isEmpty() ? 1 : 1 + static_cast<std::uint64_t>((text.size() - 1) / columns_);
}

const ConsoleModel::Line* ConsoleModel::lineAt(double row) const {
    const auto after = std::ranges::upper_bound(
        lines_, row, {}, [](const Line& line) { return static_cast<double>(line.firstRow); });
    return after == lines_.begin() ? nullptr : &*(after - 1);
}

const ConsoleModel::Line& ConsoleModel::lineOf(double number) const {
    return lines_.at(static_cast<std::size_t>(std::clamp(number, oldest(), newest()) - oldest()));
}

double ConsoleModel::numberOf(const Line& line) const {
    const auto found = std::ranges::lower_bound(lines_, line.firstRow, {}, &Line::firstRow);
    return oldest() + static_cast<double>(found - lines_.begin());
}

ConsoleRow ConsoleModel::row(double row) const {
    const Line* line = row < end() ? lineAt(row) : nullptr;
    if (!line) return {};
    const int from = static_cast<int>(row - static_cast<double>(line->firstRow)) * columns_;
    ConsoleRow found;
    found.number = numberOf(*line);
    found.text = line->text.mid(from, columns_);
    found.from = from;
    if (from > 0) return found;
    found.time = toQt(line->line.time);
    found.transport = toQt(line->line.transport);
    found.whole = line->text;
    return found;
}

ConsolePlace ConsoleModel::place(double row, int column) const {
    if (lines_.empty()) return {};
    const double within = std::clamp(row, begin(), end() - 1);
    const Line& line = *lineAt(within);
    const int from = static_cast<int>(within - static_cast<double>(line.firstRow)) * columns_;
    const auto length = static_cast<int>(line.text.size());
    return {.number = numberOf(line),
            .column = std::min(from + std::clamp(column, 0, columns_), length)};
}

double ConsoleModel::lineBeside(double number, int step) const {
    return lines_.empty() ? 0 : std::clamp(number + step, oldest(), newest());
}

double ConsoleModel::firstRowOf(double number) const {
    return lines_.empty() ? end() : static_cast<double>(lineOf(number).firstRow);
}

double ConsoleModel::lastRowOf(double number) const {
    if (lines_.empty()) return end();
    const Line& line = lineOf(number);
    return static_cast<double>(line.firstRow + rowsFor(line.text) - 1);
}

QString ConsoleModel::textOf(double number) const {
    return lines_.empty() ? QString() : lineOf(number).text;
}

void ConsoleModel::selectAll() {
    if (!lines_.empty()) selection_.selectLines(oldest(), newest());
}

std::string ConsoleModel::joinSelected(const std::function<std::string(const Line&)>& text) const {
    if (selection_.isEmpty()) return {};
    std::string all;
    for (double number = selection_.first(); number <= selection_.last(); ++number) {
        if (number > selection_.first()) all += '\n';
        all += text(lineOf(number));
    }
    return all;
}

std::string ConsoleModel::selectedText() const {
    return joinSelected([this](const Line& each) {
        const int from = selection_.firstColumn();
        const int to = selection_.lastColumn();
        if (from == 0 && to >= each.text.size()) return each.line.text;
        return each.text.mid(from, to - from).toStdString();
    });
}

std::string ConsoleModel::selectedLines() const {
    return joinSelected([](const Line& each) { return each.line.copyText(); });
}

void ConsoleModel::setFilter(ConsoleFilter filter) {
    if (filter == filter_) return;
    filter_ = std::move(filter);
    selection_.clear();
    removed_ += lines_.size();
    lines_.clear();
    lastPosition_ = 0;
    append();
    Q_EMIT rewrapped();
    Q_EMIT changed();
    Q_EMIT filterChanged();
}

bool ConsoleModel::isUpToDate() const {
    return lastPosition_ == simulator_.consoleAppendedCount() &&
           (lines_.empty() || lines_.front().position >= oldestPosition());
}

void ConsoleModel::update() {
    const std::pair before(begin(), end());
    removeFront();
    append();
    selection_.keepWithin(oldest(), newest());
    if (before != std::pair(begin(), end())) Q_EMIT changed();
}

std::uint64_t ConsoleModel::oldestPosition() const {
    return simulator_.consoleAppendedCount() - simulator_.consoleLines().size() + 1;
}

void ConsoleModel::removeFront() {
    const std::uint64_t oldest = oldestPosition();
    while (!lines_.empty() && lines_.front().position < oldest) {
        lines_.pop_front();
        ++removed_;
    }
}

void ConsoleModel::append() {
    const auto& lines = simulator_.consoleLines();
    const std::uint64_t oldest = oldestPosition();
    std::uint64_t position = std::max(lastPosition_ + 1, oldest);
    for (; position <= simulator_.consoleAppendedCount(); ++position) {
        const gateway::ConsoleLine& line = lines[position - oldest];
        if (line.missedBefore > 0) appendLine(position, missedNote(line.missedBefore, line.time));
        if (filter_.passes(line)) appendLine(position, line);
    }
    lastPosition_ = simulator_.consoleAppendedCount();
}

void ConsoleModel::appendLine(std::uint64_t position, const gateway::ConsoleLine& line) {
    QString text = shown(line.text);
    const std::uint64_t rows = rowsFor(text);
    lines_.push_back({position, line, std::move(text), end_});
    end_ += rows;
}

}  // namespace tidewright::ui
