#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "platform/Observable.h"
#include "simulation/ManualTargets.h"
#include "ui/Member.h"

namespace tidewright::ui {

/// What the user dials in by hand, for QML.
class ManualBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(ManualTargets)
    QML_UNCREATABLE("Reached through the engine")
    Q_PROPERTY(double sog READ sog WRITE setSog NOTIFY changed)
    Q_PROPERTY(double heading READ heading WRITE setHeading NOTIFY changed)
    Q_PROPERTY(double windSpeed READ windSpeed WRITE setWindSpeed NOTIFY changed)
    Q_PROPERTY(double windAngle READ windAngle WRITE setWindAngle NOTIFY changed)
    Q_PROPERTY(double depth READ depth WRITE setDepth NOTIFY changed)
    Q_PROPERTY(double waterTemp READ waterTemp WRITE setWaterTemp NOTIFY changed)

public:
    ManualBridge(platform::Published<simulation::ManualTargets>& targets, QObject* parent)
        : QObject(parent), targets_(targets) {}

    double sog() const { return targets_->sog; }
    double heading() const { return targets_->heading; }
    double windSpeed() const { return targets_->windSpeed; }
    double windAngle() const { return targets_->windAngle; }
    double depth() const { return targets_->depth; }
    double waterTemp() const { return targets_->waterTemp; }

    void setSog(double value) { assignMember(targets_, &simulation::ManualTargets::sog, value); }
    void setHeading(double value) {
        assignMember(targets_, &simulation::ManualTargets::heading, value);
    }
    void setWindSpeed(double value) {
        assignMember(targets_, &simulation::ManualTargets::windSpeed, value);
    }
    void setWindAngle(double value) {
        assignMember(targets_, &simulation::ManualTargets::windAngle, value);
    }
    void setDepth(double value) {
        assignMember(targets_, &simulation::ManualTargets::depth, value);
    }
    void setWaterTemp(double value) {
        assignMember(targets_, &simulation::ManualTargets::waterTemp, value);
    }

Q_SIGNALS:
    void changed();

private:
    platform::Published<simulation::ManualTargets>& targets_;
};

}  // namespace tidewright::ui
