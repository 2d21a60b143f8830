#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <cstdint>
#include <deque>
#include <string>

#include "gateway/GatewaySimulator.h"
#include "ui/ConsoleSelection.h"

namespace tidewright::ui {

/// The console's lines as a list, oldest first. Follows the gateway when told to, by taking lines
/// off the front and adding some at the end, never by starting over.
class ConsoleModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Reached through the gateway")
    Q_PROPERTY(tidewright::ui::ConsoleSelection* selection READ selection CONSTANT)

public:
    enum Role { NumberRole = Qt::UserRole, TimeRole, TransportRole, TextRole };

    /// `simulator` must outlive this.
    ConsoleModel(const gateway::GatewaySimulator& simulator, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    ConsoleSelection* selection() { return &selection_; }

    /// The number of the line in `row`, counted over all lines ever logged, from 1; rows beyond
    /// either end count as the last one there. 0 where there is no line.
    Q_INVOKABLE double numberAt(int row) const;

    /// The row of a line, within the rows there are; -1 where there are none.
    Q_INVOKABLE int rowOf(double number) const;

    Q_INVOKABLE void selectAll();

    /// As the whole console is copied: "14:03:27 TCP > text", one line feed between two.
    std::string selectedText() const;

    /// Takes up what happened to the console since the last call.
    void update();

private:
    void removeFront(int count);
    void append(int count);
    double oldest() const { return lines_.empty() ? 0 : static_cast<double>(dropped_ + 1); }
    double newest() const { return static_cast<double>(dropped_ + lines_.size()); }

    const gateway::GatewaySimulator& simulator_;
    std::deque<gateway::ConsoleLine> lines_;
    std::uint64_t dropped_ = 0;  // lines that are no longer here, or never were
    ConsoleSelection selection_;
};

}  // namespace tidewright::ui
