#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

#include "gateway/Assembly.h"
#include "platform/Lifetime.h"
#include "platform/MainLoop.h"
#include "platform/Subscription.h"
#include "ui/ClientsModel.h"
#include "ui/ConsoleModel.h"

namespace tidewright::ui {

/// Shows the gateway to QML. However often the gateway changes, it is looked at once every
/// batchPeriod at most, and its console, whose every change paints many rows, once every
/// consolePeriod: lines come by the thousand.
class SimulatorBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(GatewaySimulator)
    QML_UNCREATABLE("Made once, by the program")
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed)
    Q_PROPERTY(bool isReachable READ isReachable NOTIFY changed)
    Q_PROPERTY(QString ipAddress READ ipAddress NOTIFY changed)
    Q_PROPERTY(QString clientText READ clientText NOTIFY changed)
    Q_PROPERTY(bool hasClients READ hasClients NOTIFY changed)
    Q_PROPERTY(bool isSilent READ isSilent NOTIFY changed)
    Q_PROPERTY(QString messageRate READ messageRate NOTIFY changed)
    Q_PROPERTY(QString byteRate READ byteRate NOTIFY changed)
    Q_PROPERTY(bool consolePaused READ consolePaused WRITE setConsolePaused NOTIFY changed)
    Q_PROPERTY(QString missedText READ missedText NOTIFY changed)
    Q_PROPERTY(QString lastError READ lastError NOTIFY changed)
    Q_PROPERTY(tidewright::ui::ConsoleModel* console READ console CONSTANT)
    Q_PROPERTY(tidewright::ui::ClientsModel* clients READ clients CONSTANT)

public:
    static constexpr auto batchPeriod = std::chrono::milliseconds(50);
    static constexpr auto consolePeriod = std::chrono::milliseconds(200);

    using SetClipboard = std::function<void(const std::string&)>;

    /// All arguments must outlive this.
    SimulatorBridge(gateway::Assembly& assembly, platform::MainLoop& loop,
                    SetClipboard setClipboard);

    bool isRunning() const { return simulator_.isRunning; }
    bool isReachable() const { return simulator_.interface->has_value(); }  ///< has an address
    QString ipAddress() const;
    QString clientText() const;  ///< who is listening
    bool hasClients() const { return !simulator_.tcpClients->empty(); }
    bool isSilent() const { return simulator_.isSilent(); }  ///< emits, and nothing gets out
    QString messageRate() const;
    QString byteRate() const;
    bool consolePaused() const { return simulator_.consolePaused; }
    QString missedText() const;  ///< how many lines this pause has cost so far; empty: none
    QString lastError() const;   ///< empty: none
    const simulation::Track& track() const { return simulator_.track(); }
    ConsoleModel* console() { return &console_; }
    ClientsModel* clients() { return &clients_; }

    void setConsolePaused(bool value);

    Q_INVOKABLE void start();
    Q_INVOKABLE void stop();
    Q_INVOKABLE void dropClient(double number);
    Q_INVOKABLE void refreshClients();  ///< as time passes, their durations do
    Q_INVOKABLE void clearConsole();
    Q_INVOKABLE void copyConsole() const;  ///< the selected lines in full; all where none is
    Q_INVOKABLE void copyAddress() const;
    Q_INVOKABLE void copySelection() const;  ///< the console's selected texts, if any

Q_SIGNALS:
    void changed();

private:
    /// What is shown of the gateway, the console apart.
    struct Shown {
        bool isRunning, isReachable, hasClients, isSilent, consolePaused;
        QString ipAddress, clientText, messageRate, byteRate, missedText, lastError;

        bool operator==(const Shown&) const = default;
    };

    Shown current() const;
    void updateSoon();
    void update();
    void updateConsoleSoon();
    void updateConsole();

    gateway::GatewaySimulator& simulator_;
    const gateway::SimulationConfig& config_;
    platform::MainLoop& loop_;
    SetClipboard setClipboard_;
    ConsoleModel console_;
    ClientsModel clients_;
    Shown shown_;
    bool updating_ = false;           // a look at the gateway is on its way
    bool updatingConsole_ = false;    // a look at its console is
    std::uint64_t missedBefore_ = 0;  // console lines missed before this pause
    platform::Subscription changes_;
    platform::Subscription settingsChanges_;
    platform::Lifetime lifetime_;
};

}  // namespace tidewright::ui
