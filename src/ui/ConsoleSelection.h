#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <limits>

namespace tidewright::ui {

/// What is selected in the console: characters of one line, or whole lines, from the anchor, where
/// the selection began, to the head, where it ends for now. By line number, so that it survives
/// lines leaving at the front. Numbers count from 1; 0 means none. As doubles, the largest whole
/// numbers that QML has.
class ConsoleSelection : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Reached through the console")
    Q_PROPERTY(double first READ first NOTIFY changed)
    Q_PROPERTY(double last READ last NOTIFY changed)
    Q_PROPERTY(double head READ head NOTIFY changed)
    Q_PROPERTY(int firstColumn READ firstColumn NOTIFY changed)
    Q_PROPERTY(int lastColumn READ lastColumn NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)

public:
    /// The column behind the last character of any line.
    static constexpr int lineEnd = std::numeric_limits<int>::max();

    using QObject::QObject;

    double first() const { return isEmpty() ? 0 : start().line; }
    double last() const { return isEmpty() ? 0 : end().line; }
    double head() const { return head_.line; }
    bool isEmpty() const { return head_ == anchor_; }

    // Within the one selected line: characters from the first column up to, not including, the
    // last; all of them where whole lines are selected.
    int firstColumn() const { return isOneLine() ? start().column : 0; }
    int lastColumn() const { return isOneLine() ? end().column : lineEnd; }

    /// Begins a selection, of nothing as yet, between two characters of a line.
    Q_INVOKABLE void begin(double number, int column) { set({number, column}, {number, column}); }

    /// Moves the end of the selection; begins one where there is none.
    Q_INVOKABLE void extendTo(double number, int column);

    /// Selects some characters of one line.
    Q_INVOKABLE void selectWithin(double number, int from, int to) {
        set({number, from}, {number, to});
    }

    /// Selects whole lines, the second one being the end that moves on.
    Q_INVOKABLE void selectLines(double from, double to) {
        if (from <= to)
            set({from, 0}, {to, lineEnd});
        else
            set({from, lineEnd}, {to, 0});
    }

    /// The same from where the selection began.
    Q_INVOKABLE void extendLinesTo(double number) {
        selectLines(anchor_.line == 0 ? number : anchor_.line, number);
    }

    Q_INVOKABLE void clear() { set({}, {}); }

    /// The lines on hand are `oldest` to `newest`, or none (0): what left is no longer selected.
    void keepWithin(double oldest, double newest);

Q_SIGNALS:
    void changed();

private:
    struct Place {
        double line = 0;
        int column = 0;

        bool operator==(const Place&) const = default;
        bool operator<(const Place& other) const {
            return line < other.line || (line == other.line && column < other.column);
        }
    };

    bool isOneLine() const { return anchor_.line == head_.line; }
    Place start() const { return anchor_ < head_ ? anchor_ : head_; }
    Place end() const { return anchor_ < head_ ? head_ : anchor_; }
    void set(Place anchor, Place head);

    Place anchor_;
    Place head_;
};

}  // namespace tidewright::ui
