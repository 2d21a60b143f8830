#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

#include "gateway/GatewaySimulator.h"
#include "gateway/SimulationConfig.h"
#include "platform/Lifetime.h"
#include "platform/MainLoop.h"
#include "platform/Subscription.h"
#include "ui/ConsoleModel.h"

namespace tidewright::ui {

/// Shows the gateway to QML. However often the gateway changes, it is looked at once every
/// batchPeriod at most: console lines come by the thousand.
class SimulatorBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(GatewaySimulator)
    QML_UNCREATABLE("Made once, by the program")
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed)
    Q_PROPERTY(bool isReachable READ isReachable NOTIFY changed)
    Q_PROPERTY(QString ipAddress READ ipAddress NOTIFY changed)
    Q_PROPERTY(QString clientText READ clientText NOTIFY changed)
    Q_PROPERTY(bool hasClients READ hasClients NOTIFY changed)
    Q_PROPERTY(QString messageRate READ messageRate NOTIFY changed)
    Q_PROPERTY(QString byteRate READ byteRate NOTIFY changed)
    Q_PROPERTY(bool consolePaused READ consolePaused WRITE setConsolePaused NOTIFY changed)
    Q_PROPERTY(QString lastError READ lastError NOTIFY changed)
    Q_PROPERTY(tidewright::ui::ConsoleModel* console READ console CONSTANT)

public:
    static constexpr auto batchPeriod = std::chrono::milliseconds(50);

    using SetClipboard = std::function<void(const std::string&)>;

    /// All arguments must outlive this.
    SimulatorBridge(gateway::GatewaySimulator& simulator, const gateway::SimulationConfig& config,
                    platform::MainLoop& loop, SetClipboard setClipboard);

    bool isRunning() const { return simulator_.isRunning; }
    bool isReachable() const { return simulator_.interface->has_value(); }  ///< has an address
    QString ipAddress() const;
    QString clientText() const;  ///< who is listening
    bool hasClients() const { return !simulator_.tcpClients->empty(); }
    QString messageRate() const;
    QString byteRate() const;
    bool consolePaused() const { return simulator_.consolePaused; }
    QString lastError() const;  ///< empty: none
    ConsoleModel* console() { return &console_; }

    void setConsolePaused(bool value);

    Q_INVOKABLE void start();
    Q_INVOKABLE void stop();
    Q_INVOKABLE void regenerateAIS();
    Q_INVOKABLE void dropClients();
    Q_INVOKABLE void clearConsole();
    Q_INVOKABLE void copyConsole() const;
    Q_INVOKABLE void copyAddress() const;
    Q_INVOKABLE void copySelection() const;  ///< the console's selected lines, if any

Q_SIGNALS:
    void changed();

private:
    void updateSoon();
    void update();

    gateway::GatewaySimulator& simulator_;
    const gateway::SimulationConfig& config_;
    platform::MainLoop& loop_;
    SetClipboard setClipboard_;
    ConsoleModel console_;
    bool updating_ = false;  // a look at the gateway is on its way
    platform::Subscription changes_;
    platform::Subscription configChanges_;
    platform::Lifetime lifetime_;
};

}  // namespace tidewright::ui
