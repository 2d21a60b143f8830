#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QStringList>

#include "platform/Subscription.h"
#include "simulation/BoatSimulationEngine.h"
#include "ui/AnchorBridge.h"
#include "ui/EnvironmentBridge.h"
#include "ui/InstrumentTexts.h"
#include "ui/ManualBridge.h"

namespace tidewright::ui {

/// Shows the boat, which must outlive it, to QML. Translates; decides nothing.
class EngineBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(BoatSimulationEngine)
    QML_UNCREATABLE("Made once, by the program")
    Q_PROPERTY(QList<QString> modes READ modes CONSTANT)
    Q_PROPERTY(QList<QString> modeLabels READ modeLabels CONSTANT)
    Q_PROPERTY(QList<QString> programs READ programs CONSTANT)
    Q_PROPERTY(QList<QString> programLabels READ programLabels CONSTANT)
    Q_PROPERTY(QString mode READ mode WRITE setMode NOTIFY steeringChanged)
    Q_PROPERTY(QString program READ program WRITE setProgram NOTIFY steeringChanged)
    Q_PROPERTY(QString programDescription READ programDescription NOTIFY steeringChanged)
    Q_PROPERTY(QString autoStatus READ autoStatus NOTIFY autoStatusChanged)
    Q_PROPERTY(tidewright::ui::ManualBridge* manual READ manual CONSTANT)
    Q_PROPERTY(tidewright::ui::AnchorBridge* anchorSettings READ anchorSettings CONSTANT)
    Q_PROPERTY(tidewright::ui::EnvironmentBridge* environment READ environment CONSTANT)
    Q_PROPERTY(QString sog READ sog NOTIFY instrumentsChanged)
    Q_PROPERTY(QString cog READ cog NOTIFY instrumentsChanged)
    Q_PROPERTY(QString stw READ stw NOTIFY instrumentsChanged)
    Q_PROPERTY(QString windSpeed READ windSpeed NOTIFY instrumentsChanged)
    Q_PROPERTY(QString windAngle READ windAngle NOTIFY instrumentsChanged)
    Q_PROPERTY(QString windSide READ windSide NOTIFY instrumentsChanged)
    Q_PROPERTY(QString depth READ depth NOTIFY instrumentsChanged)
    Q_PROPERTY(QString position READ position NOTIFY instrumentsChanged)

public:
    explicit EngineBridge(simulation::BoatSimulationEngine& engine);

    /// The boat herself.
    const simulation::BoatSimulationEngine& boat() const { return engine_; }

    // Raw values, and what the user reads for them, in the same order.
    static QStringList modes();
    static QStringList modeLabels();
    static QStringList programs();
    static QStringList programLabels();

    QString mode() const;     ///< a raw value
    QString program() const;  ///< a raw value
    QString programDescription() const;
    QString autoStatus() const;
    ManualBridge* manual() { return &manual_; }
    AnchorBridge* anchorSettings() { return &anchorSettings_; }
    EnvironmentBridge* environment() { return &environment_; }

    // The tiles' texts.
    QString sog() const { return QString::fromStdString(instruments_.sog); }
    QString cog() const { return QString::fromStdString(instruments_.cog); }
    QString stw() const { return QString::fromStdString(instruments_.stw); }
    QString windSpeed() const { return QString::fromStdString(instruments_.windSpeed); }
    QString windAngle() const { return QString::fromStdString(instruments_.windAngle); }
    QString windSide() const { return QString::fromStdString(instruments_.windSide); }
    QString depth() const { return QString::fromStdString(instruments_.depth); }
    QString position() const { return QString::fromStdString(instruments_.position); }

    /// Raw values; any other text changes nothing.
    void setMode(const QString& value);
    void setProgram(const QString& value);

    /// Tacks or gybes at once; false where the boat refuses.
    Q_INVOKABLE bool triggerManeuver(bool tack);

Q_SIGNALS:
    void steeringChanged();
    void autoStatusChanged();
    void instrumentsChanged();

private:
    /// What was last shown, so that only what changed is announced.
    struct Shown {
        simulation::ControlMode mode;
        simulation::SailingProgram program;
        std::string autoStatus;
        simulation::ManualTargets manual;
        simulation::AnchorSettings anchorSettings;
        simulation::SailingEnvironment environment;
    };

    Shown current() const;
    void update();

    simulation::BoatSimulationEngine& engine_;
    ManualBridge manual_;
    AnchorBridge anchorSettings_;
    EnvironmentBridge environment_;
    InstrumentTexts instruments_;
    Shown shown_;
    platform::Subscription changes_;
};

}  // namespace tidewright::ui
