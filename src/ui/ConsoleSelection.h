#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <algorithm>

namespace tidewright::ui {

/// Which console lines are selected: those between two line numbers, the anchor, where the
/// selection began, and the head, where it ends for now. By number, so that it survives lines
/// leaving at the front. Numbers count from 1; 0 means none. As doubles, the largest whole numbers
/// that QML has.
class ConsoleSelection : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Reached through the console")
    Q_PROPERTY(double first READ first NOTIFY changed)
    Q_PROPERTY(double last READ last NOTIFY changed)
    Q_PROPERTY(double head READ head NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)

public:
    using QObject::QObject;

    double first() const { return std::min(anchor_, head_); }
    double last() const { return std::max(anchor_, head_); }
    double head() const { return head_; }
    bool isEmpty() const { return head_ == 0; }

    /// Selects one line.
    Q_INVOKABLE void select(double number) { set(number, number); }

    /// Moves the end of the selection; begins one where there is none.
    Q_INVOKABLE void extendTo(double number) { set(isEmpty() ? number : anchor_, number); }

    Q_INVOKABLE void clear() { set(0, 0); }

    /// The lines on hand are `oldest` to `newest`, or none (0): what left is no longer selected.
    void keepWithin(double oldest, double newest);

    void selectBetween(double anchor, double head) { set(anchor, head); }

Q_SIGNALS:
    void changed();

private:
    void set(double anchor, double head);

    double anchor_ = 0;
    double head_ = 0;
};

}  // namespace tidewright::ui
