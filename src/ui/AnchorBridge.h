#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "platform/Observable.h"
#include "simulation/AnchorSimulation.h"
#include "ui/Member.h"

namespace tidewright::ui {

/// What the user chooses about lying to the anchor, for QML.
class AnchorBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(AnchorSettings)
    QML_UNCREATABLE("Reached through the engine")
    Q_PROPERTY(double windSpeed READ windSpeed WRITE setWindSpeed NOTIFY changed)
    Q_PROPERTY(double windDirection READ windDirection WRITE setWindDirection NOTIFY changed)
    Q_PROPERTY(bool shiftingWind READ shiftingWind WRITE setShiftingWind NOTIFY changed)
    Q_PROPERTY(double shiftAmplitude READ shiftAmplitude WRITE setShiftAmplitude NOTIFY changed)
    Q_PROPERTY(double chainLength READ chainLength WRITE setChainLength NOTIFY changed)
    Q_PROPERTY(bool chainTaut READ chainTaut WRITE setChainTaut NOTIFY changed)
    Q_PROPERTY(bool dragging READ dragging WRITE setDragging NOTIFY changed)
    Q_PROPERTY(double dragSpeed READ dragSpeed WRITE setDragSpeed NOTIFY changed)

public:
    AnchorBridge(platform::Published<simulation::AnchorSettings>& settings, QObject* parent)
        : QObject(parent), settings_(settings) {}

    double windSpeed() const { return settings_->windSpeed; }
    double windDirection() const { return settings_->windDirection; }
    bool shiftingWind() const { return settings_->shiftingWind; }
    double shiftAmplitude() const { return settings_->shiftAmplitude; }
    double chainLength() const { return settings_->chainLength; }
    bool chainTaut() const { return settings_->chainTaut; }
    bool dragging() const { return settings_->dragging; }
    double dragSpeed() const { return settings_->dragSpeed; }

    void setWindSpeed(double value) {
        assignMember(settings_, &simulation::AnchorSettings::windSpeed, value);
    }
    void setWindDirection(double value) {
        assignMember(settings_, &simulation::AnchorSettings::windDirection, value);
    }
    void setShiftingWind(bool value) {
        assignMember(settings_, &simulation::AnchorSettings::shiftingWind, value);
    }
    void setShiftAmplitude(double value) {
        assignMember(settings_, &simulation::AnchorSettings::shiftAmplitude, value);
    }
    void setChainLength(double value) {
        assignMember(settings_, &simulation::AnchorSettings::chainLength, value);
    }
    void setChainTaut(bool value) {
        assignMember(settings_, &simulation::AnchorSettings::chainTaut, value);
    }
    void setDragging(bool value) {
        assignMember(settings_, &simulation::AnchorSettings::dragging, value);
    }
    void setDragSpeed(double value) {
        assignMember(settings_, &simulation::AnchorSettings::dragSpeed, value);
    }

Q_SIGNALS:
    void changed();

private:
    platform::Published<simulation::AnchorSettings>& settings_;
};

}  // namespace tidewright::ui
