#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

#include "platform/Subscription.h"
#include "simulation/BoatSimulationEngine.h"
#include "ui/InstrumentTexts.h"

namespace tidewright::ui {

/// Shows the boat, which must outlive it, to QML. Translates; decides nothing.
class EngineBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(BoatSimulationEngine)
    QML_UNCREATABLE("Made once, by the program")
    Q_PROPERTY(QString autoStatus READ autoStatus NOTIFY autoStatusChanged)
    Q_PROPERTY(QString windCaption READ windCaption NOTIFY windCaptionChanged)
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

    QString autoStatus() const { return shown_.autoStatus; }
    QString windCaption() const { return shown_.windCaption; }  ///< the range of winds to expect

    // The tiles' texts.
    QString sog() const { return QString::fromStdString(instruments_.sog); }
    QString cog() const { return QString::fromStdString(instruments_.cog); }
    QString stw() const { return QString::fromStdString(instruments_.stw); }
    QString windSpeed() const { return QString::fromStdString(instruments_.windSpeed); }
    QString windAngle() const { return QString::fromStdString(instruments_.windAngle); }
    QString windSide() const { return QString::fromStdString(instruments_.windSide); }
    QString depth() const { return QString::fromStdString(instruments_.depth); }
    QString position() const { return QString::fromStdString(instruments_.position); }

Q_SIGNALS:
    void autoStatusChanged();
    void windCaptionChanged();
    void instrumentsChanged();

private:
    /// What was last shown, so that only what changed is announced.
    struct Shown {
        QString autoStatus;
        QString windCaption;
    };

    Shown current() const;
    void update();

    simulation::BoatSimulationEngine& engine_;
    InstrumentTexts instruments_;
    Shown shown_;
    platform::Subscription changes_;
};

}  // namespace tidewright::ui
