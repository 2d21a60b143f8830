#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>

#include "gateway/Actions.h"

namespace tidewright::ui {

/// The list of actions, which must outlive it, for QML.
class ActionsBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Actions)
    QML_UNCREATABLE("Made once, by the program")

public:
    explicit ActionsBridge(const gateway::Actions& actions) : actions_(actions) {}

    // Of the action of that name, which must be one.

    Q_INVOKABLE QString label(const QString& name) const;
    /// Whether it could be done.
    Q_INVOKABLE bool perform(const QString& name) const;

private:
    const gateway::Action& action(const QString& name) const;

    const gateway::Actions& actions_;
};

}  // namespace tidewright::ui
