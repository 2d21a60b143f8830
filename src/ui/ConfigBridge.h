#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QStringList>

#include "gateway/SimulationConfig.h"
#include "platform/Subscription.h"

namespace tidewright::ui {

/// Shows the settings, which must outlive it, to QML. Translates; decides nothing but which port
/// numbers can be entered.
class ConfigBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(SimulationConfig)
    QML_UNCREATABLE("Made once, by the program")
    Q_PROPERTY(QList<QString> presets READ presets CONSTANT)
    Q_PROPERTY(QList<QString> presetNames READ presetNames CONSTANT)
    Q_PROPERTY(QList<QString> presetDetails READ presetDetails CONSTANT)
    Q_PROPERTY(QList<QString> talkers READ talkers CONSTANT)
    Q_PROPERTY(QString preset READ preset NOTIFY changed)
    Q_PROPERTY(bool presetModified READ presetModified NOTIFY changed)
    Q_PROPERTY(bool tcpEnabled READ tcpEnabled WRITE setTcpEnabled NOTIFY changed)
    Q_PROPERTY(bool udpEnabled READ udpEnabled WRITE setUdpEnabled NOTIFY changed)
    Q_PROPERTY(QString tcpPort READ tcpPort NOTIFY changed)
    Q_PROPERTY(QString udpPort READ udpPort NOTIFY changed)
    Q_PROPERTY(QString gpsTalker READ gpsTalker WRITE setGpsTalker NOTIFY changed)
    Q_PROPERTY(bool gps READ gps WRITE setGps NOTIFY changed)
    Q_PROPERTY(bool heading READ heading WRITE setHeading NOTIFY changed)
    Q_PROPERTY(bool boatSpeed READ boatSpeed WRITE setBoatSpeed NOTIFY changed)
    Q_PROPERTY(bool wind READ wind WRITE setWind NOTIFY changed)
    Q_PROPERTY(bool depth READ depth WRITE setDepth NOTIFY changed)
    Q_PROPERTY(bool temperature READ temperature WRITE setTemperature NOTIFY changed)
    Q_PROPERTY(bool ais READ ais WRITE setAis NOTIFY changed)
    Q_PROPERTY(double positionHz READ positionHz WRITE setPositionHz NOTIFY changed)
    Q_PROPERTY(double courseSpeedHz READ courseSpeedHz WRITE setCourseSpeedHz NOTIFY changed)
    Q_PROPERTY(double headingHz READ headingHz WRITE setHeadingHz NOTIFY changed)
    Q_PROPERTY(double boatSpeedHz READ boatSpeedHz WRITE setBoatSpeedHz NOTIFY changed)
    Q_PROPERTY(double windHz READ windHz WRITE setWindHz NOTIFY changed)
    Q_PROPERTY(double depthHz READ depthHz WRITE setDepthHz NOTIFY changed)
    Q_PROPERTY(double temperatureHz READ temperatureHz WRITE setTemperatureHz NOTIFY changed)
    Q_PROPERTY(double aisHz READ aisHz WRITE setAisHz NOTIFY changed)
    Q_PROPERTY(int aisTargetCount READ aisTargetCount WRITE setAisTargetCount NOTIFY changed)

public:
    explicit ConfigBridge(gateway::SimulationConfig& config);

    // The presets' identifiers, and what the user reads for them, in the same order.
    static QStringList presets();
    static QStringList presetNames();
    static QStringList presetDetails();

    static QStringList talkers();  ///< the talkers on offer

    QString preset() const;       ///< the identifier of the one last applied
    bool presetModified() const;  ///< what it brought was changed since
    bool tcpEnabled() const { return config_.tcpEnabled; }
    bool udpEnabled() const { return config_.udpEnabled; }
    QString tcpPort() const { return QString::number(config_.tcpPort); }
    QString udpPort() const { return QString::number(config_.udpPort); }
    QString gpsTalker() const { return QString::fromStdString(config_.gpsTalker); }
    bool gps() const { return config_.gps; }
    bool heading() const { return config_.heading; }
    bool boatSpeed() const { return config_.boatSpeed; }
    bool wind() const { return config_.wind; }
    bool depth() const { return config_.depth; }
    bool temperature() const { return config_.temperature; }
    bool ais() const { return config_.ais; }
    double positionHz() const { return config_.positionHz; }
    double courseSpeedHz() const { return config_.courseSpeedHz; }
    double headingHz() const { return config_.headingHz; }
    double boatSpeedHz() const { return config_.boatSpeedHz; }
    double windHz() const { return config_.windHz; }
    double depthHz() const { return config_.depthHz; }
    double temperatureHz() const { return config_.temperatureHz; }
    double aisHz() const { return config_.aisHz; }
    int aisTargetCount() const { return static_cast<int>(config_.aisTargetCount.get()); }

    void setTcpEnabled(bool value) { config_.tcpEnabled = value; }
    void setUdpEnabled(bool value) { config_.udpEnabled = value; }
    void setGpsTalker(const QString& value) { config_.gpsTalker = value.toStdString(); }
    void setGps(bool value) { config_.gps = value; }
    void setHeading(bool value) { config_.heading = value; }
    void setBoatSpeed(bool value) { config_.boatSpeed = value; }
    void setWind(bool value) { config_.wind = value; }
    void setDepth(bool value) { config_.depth = value; }
    void setTemperature(bool value) { config_.temperature = value; }
    void setAis(bool value) { config_.ais = value; }
    void setPositionHz(double value) { config_.positionHz = value; }
    void setCourseSpeedHz(double value) { config_.courseSpeedHz = value; }
    void setHeadingHz(double value) { config_.headingHz = value; }
    void setBoatSpeedHz(double value) { config_.boatSpeedHz = value; }
    void setWindHz(double value) { config_.windHz = value; }
    void setDepthHz(double value) { config_.depthHz = value; }
    void setTemperatureHz(double value) { config_.temperatureHz = value; }
    void setAisHz(double value) { config_.aisHz = value; }
    void setAisTargetCount(int value) { config_.aisTargetCount = value; }

    /// What keeps `text` from being a port, in French; empty if it is one.
    Q_INVOKABLE static QString portProblem(const QString& text);

    // What the user typed; anything but a port changes nothing.
    Q_INVOKABLE void enterTcpPort(const QString& text);
    Q_INVOKABLE void enterUdpPort(const QString& text);

    /// Takes over the network manners of the preset with this identifier.
    Q_INVOKABLE void apply(const QString& preset);

Q_SIGNALS:
    void changed();

private:
    gateway::SimulationConfig& config_;
    platform::Subscription changes_;
};

}  // namespace tidewright::ui
