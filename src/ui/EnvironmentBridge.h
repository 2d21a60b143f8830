#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QStringList>
#include <algorithm>

#include "platform/Observable.h"
#include "simulation/SailingEnvironment.h"
#include "ui/Member.h"

namespace tidewright::ui {

/// What the user chooses about the wind and the crew, for QML.
class EnvironmentBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(SailingEnvironment)
    QML_UNCREATABLE("Reached through the engine")
    Q_PROPERTY(QList<QString> windPresets READ windPresets CONSTANT)
    Q_PROPERTY(QList<QString> windPresetLabels READ windPresetLabels CONSTANT)
    Q_PROPERTY(QString windPreset READ windPreset WRITE setWindPreset NOTIFY changed)
    Q_PROPERTY(double customMin READ customMin WRITE setCustomMin NOTIFY changed)
    Q_PROPERTY(double customMax READ customMax WRITE setCustomMax NOTIFY changed)
    Q_PROPERTY(QString windCaption READ windCaption NOTIFY changed)
    Q_PROPERTY(double performancePercent READ performancePercent WRITE setPerformancePercent NOTIFY
                   changed)
    Q_PROPERTY(bool crewSteps READ crewSteps WRITE setCrewSteps NOTIFY changed)

public:
    EnvironmentBridge(platform::Published<simulation::SailingEnvironment>& environment,
                      QObject* parent)
        : QObject(parent), environment_(environment) {}

    static QStringList windPresets();       ///< their raw values
    static QStringList windPresetLabels();  ///< in the same order
    QString windPreset() const;             ///< a raw value
    double customMin() const { return environment_->customMin; }
    double customMax() const { return environment_->customMax; }
    QString windCaption() const;  ///< the range of winds to expect
    double performancePercent() const { return environment_->performance * 100; }
    bool crewSteps() const { return environment_->crewSteps; }

    /// A raw value; any other text changes nothing.
    void setWindPreset(const QString& value);
    /// Each keeps a knot away from the other, by pushing it.
    void setCustomMin(double value) {
        setCustomRange(value, std::max(environment_->customMax, value + 1));
    }
    void setCustomMax(double value) {
        setCustomRange(std::min(environment_->customMin, value - 1), value);
    }
    void setPerformancePercent(double value) {
        assignMember(environment_, &simulation::SailingEnvironment::performance, value / 100);
    }
    void setCrewSteps(bool value) {
        assignMember(environment_, &simulation::SailingEnvironment::crewSteps, value);
    }

Q_SIGNALS:
    void changed();

private:
    void setCustomRange(double low, double high) {
        simulation::SailingEnvironment changed = environment_;
        changed.customMin = low;
        changed.customMax = high;
        environment_ = changed;
    }

    platform::Published<simulation::SailingEnvironment>& environment_;
};

}  // namespace tidewright::ui
