#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

#include "gateway/FailureInjection.h"
#include "platform/Subscription.h"

namespace tidewright::ui {

/// Shows the faults, which must outlive it, to QML. Translates; decides nothing.
class FailureBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(FailureInjection)
    QML_UNCREATABLE("Made once, by the program")
    Q_PROPERTY(bool stopStream READ stopStream WRITE setStopStream NOTIFY changed)
    Q_PROPERTY(bool disableGPS READ disableGPS WRITE setDisableGPS NOTIFY changed)
    Q_PROPERTY(bool disableWind READ disableWind WRITE setDisableWind NOTIFY changed)
    Q_PROPERTY(bool disableAIS READ disableAIS WRITE setDisableAIS NOTIFY changed)
    Q_PROPERTY(bool invalidChecksum READ invalidChecksum WRITE setInvalidChecksum NOTIFY changed)
    Q_PROPERTY(bool randomDisconnections READ randomDisconnections WRITE setRandomDisconnections
                   NOTIFY changed)
    Q_PROPERTY(int latencyMs READ latencyMs WRITE setLatencyMs NOTIFY changed)
    Q_PROPERTY(QString latencyText READ latencyText NOTIFY changed)
    Q_PROPERTY(
        int packetLossPercent READ packetLossPercent WRITE setPacketLossPercent NOTIFY changed)
    Q_PROPERTY(QString packetLossText READ packetLossText NOTIFY changed)
    Q_PROPERTY(QString activeText READ activeText NOTIFY changed)

public:
    explicit FailureBridge(gateway::FailureInjection& failure)
        : failure_(failure), changes_(failure.observe([this] { Q_EMIT changed(); })) {}

    bool stopStream() const { return failure_.stopStream; }
    bool disableGPS() const { return failure_.disableGPS; }
    bool disableWind() const { return failure_.disableWind; }
    bool disableAIS() const { return failure_.disableAIS; }
    bool invalidChecksum() const { return failure_.invalidChecksum; }
    bool randomDisconnections() const { return failure_.randomDisconnections; }
    int latencyMs() const { return static_cast<int>(failure_.latencyMs.get()); }
    QString latencyText() const { return QStringLiteral("%1 ms").arg(latencyMs()); }
    int packetLossPercent() const { return static_cast<int>(failure_.packetLossPercent.get()); }
    QString packetLossText() const { return QStringLiteral("%1 %").arg(packetLossPercent()); }

    /// As in "2 pannes actives"; empty where none is on.
    QString activeText() const {
        const int count = failure_.activeCount();
        if (count == 0) return {};
        return count == 1 ? QStringLiteral("1 panne active")
                          : QStringLiteral("%1 pannes actives").arg(count);
    }
    Q_INVOKABLE void reset() { failure_.reset(); }

    void setStopStream(bool value) { failure_.stopStream = value; }
    void setDisableGPS(bool value) { failure_.disableGPS = value; }
    void setDisableWind(bool value) { failure_.disableWind = value; }
    void setDisableAIS(bool value) { failure_.disableAIS = value; }
    void setInvalidChecksum(bool value) { failure_.invalidChecksum = value; }
    void setRandomDisconnections(bool value) { failure_.randomDisconnections = value; }
    void setLatencyMs(int value) { failure_.latencyMs = value; }
    void setPacketLossPercent(int value) { failure_.packetLossPercent = value; }

Q_SIGNALS:
    void changed();

private:
    gateway::FailureInjection& failure_;
    platform::Subscription changes_;
};

}  // namespace tidewright::ui
