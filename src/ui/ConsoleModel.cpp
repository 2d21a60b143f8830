#include "ui/ConsoleModel.h"

#include <fmt/format.h>

#include <algorithm>

#include "ui/Texts.h"

namespace tidewright::ui {

ConsoleModel::ConsoleModel(const gateway::GatewaySimulator& simulator, QObject* parent)
    : QAbstractListModel(parent), simulator_(simulator), selection_(this) {
    update();
}

int ConsoleModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant ConsoleModel::data(const QModelIndex& index, int role) const {
    const gateway::ConsoleLine& line = lines_.at(static_cast<std::size_t>(index.row()));
    switch (role) {
        case NumberRole:
            return numberAt(index.row());
        case TimeRole:
            return toQt(line.time);
        case TransportRole:
            return toQt(line.transport);
        case TextRole:
            return toQt(line.text);
        default:
            return {};
    }
}

QHash<int, QByteArray> ConsoleModel::roleNames() const {
    return {{NumberRole, "number"},
            {TimeRole, "time"},
            {TransportRole, "transport"},
            {TextRole, "text"}};
}

double ConsoleModel::numberAt(int row) const {
    if (lines_.empty()) return 0;
    return std::clamp(static_cast<double>(dropped_) + row + 1, oldest(), newest());
}

int ConsoleModel::rowOf(double number) const {
    if (lines_.empty()) return -1;
    return static_cast<int>(std::clamp(number, oldest(), newest()) - oldest());
}

void ConsoleModel::selectAll() {
    selection_.selectBetween(oldest(), newest());
}

std::string ConsoleModel::selectedText() const {
    if (selection_.isEmpty()) return {};
    std::string text;
    for (int row = rowOf(selection_.first()); row <= rowOf(selection_.last()); ++row) {
        const gateway::ConsoleLine& line = lines_[static_cast<std::size_t>(row)];
        text += fmt::format("{}{} {} > {}", text.empty() ? "" : "\n", line.time, line.transport,
                            line.text);
    }
    return text;
}

void ConsoleModel::update() {
    const std::uint64_t logged = simulator_.consoleAppendedCount();
    const std::uint64_t gone = logged - simulator_.consoleLines().size();
    removeFront(static_cast<int>(std::min<std::uint64_t>(gone - dropped_, lines_.size())));
    if (lines_.empty()) dropped_ = gone;
    append(static_cast<int>(logged - dropped_ - lines_.size()));
    selection_.keepWithin(oldest(), lines_.empty() ? 0 : newest());
}

void ConsoleModel::removeFront(int count) {
    if (count == 0) return;
    beginRemoveRows({}, 0, count - 1);
    lines_.erase(lines_.begin(), lines_.begin() + count);
    dropped_ += static_cast<std::uint64_t>(count);
    endRemoveRows();
}

void ConsoleModel::append(int count) {
    if (count == 0) return;
    const int end = rowCount();
    beginInsertRows({}, end, end + count - 1);
    const auto& all = simulator_.consoleLines();
    lines_.insert(lines_.end(), all.end() - count, all.end());
    endInsertRows();
}

}  // namespace tidewright::ui
