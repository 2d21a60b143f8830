#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <QString>
#include <vector>

#include "gateway/GatewayClient.h"
#include "platform/MainLoop.h"

namespace tidewright::ui {

/// The connected TCP clients as a list, in the gateway's order, no more of them than anyone would
/// read. A row stays the same row while its client stays, so that a button in it keeps the
/// keyboard.
class ClientsModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Reached through the gateway")
    Q_PROPERTY(QString beyondText READ beyondText NOTIFY beyondTextChanged)

public:
    enum Role { NumberRole = Qt::UserRole, AddressRole, DetailsRole };

    static constexpr std::size_t mostRows = 50;

    explicit ClientsModel(QObject* parent) : QAbstractListModel(parent) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// How many more are connected, in French; empty where all are listed.
    QString beyondText() const;

    /// Shows these clients, as they stand at `now`.
    void update(const std::vector<gateway::GatewayClient>& clients, platform::WallTime now);

Q_SIGNALS:
    void beyondTextChanged();

private:
    void removeThoseWhoLeft(const std::vector<gateway::GatewayClient>& clients);

    std::vector<gateway::GatewayClient> rows_;
    std::size_t beyond_ = 0;
    platform::WallTime now_;
};

}  // namespace tidewright::ui
