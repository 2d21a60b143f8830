#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>
#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "gateway/GatewaySimulator.h"
#include "ui/ConsoleFilter.h"
#include "ui/ConsoleSelection.h"

namespace tidewright::ui {

/// A row as it is drawn: a line of the console, or what of a long one comes after so many columns.
class ConsoleRow {
    Q_GADGET
    QML_VALUE_TYPE(consoleRow)
    Q_PROPERTY(double number MEMBER number)
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString transport MEMBER transport)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString whole MEMBER whole)
    Q_PROPERTY(int from MEMBER from)

public:
    double number = 0;  ///< of its line; 0: there is no such row
    QString time;       ///< this and the transport are empty where a line goes on
    QString transport;
    QString text;   ///< what of the line stands in this row
    QString whole;  ///< the line's text; empty where a line goes on
    int from = 0;   ///< the column of the line that the row begins with

    bool operator==(const ConsoleRow&) const = default;
};

/// A place between two characters of a line.
class ConsolePlace {
    Q_GADGET
    QML_VALUE_TYPE(consolePlace)
    Q_PROPERTY(double number MEMBER number)
    Q_PROPERTY(int column MEMBER column)

public:
    double number = 0;  ///< of the line; 0: there are no lines
    int column = 0;
};

/// The console as rows of so many columns, oldest first: the lines that pass the filter, and a note
/// wherever lines were missed because of a pause. Rows are numbered from 0 through all that were
/// ever shown, so that a row keeps its number while others leave at the front; lines likewise,
/// from 1. (As doubles, the largest whole numbers that QML has.)
class ConsoleModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Reached through the gateway")
    Q_PROPERTY(tidewright::ui::ConsoleSelection* selection READ selection CONSTANT)
    Q_PROPERTY(int columns READ columns WRITE setColumns NOTIFY rewrapped)
    Q_PROPERTY(double begin READ begin NOTIFY changed)
    Q_PROPERTY(double end READ end NOTIFY changed)
    Q_PROPERTY(QString transport READ transport WRITE setTransport NOTIFY filterChanged)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY filterChanged)

public:
    /// Texts beyond this many characters are shown, and selected, up to here.
    static constexpr int longestText = 1000;

    /// `simulator` must outlive this.
    ConsoleModel(const gateway::GatewaySimulator& simulator, QObject* parent);

    ConsoleSelection* selection() { return &selection_; }

    int columns() const { return columns_; }
    void setColumns(int columns);  ///< at least 1

    double begin() const;                                     ///< the oldest row
    double end() const { return static_cast<double>(end_); }  ///< the row that comes next

    QString transport() const { return filter_.transport; }
    QString words() const { return filter_.words; }
    void setTransport(const QString& value) { setFilter({value, filter_.words}); }
    void setWords(const QString& value) { setFilter({filter_.transport, value}); }

    Q_INVOKABLE tidewright::ui::ConsoleRow row(double row) const;

    /// Where in a line the column `column` of a row lies; the nearest place where there is none.
    Q_INVOKABLE tidewright::ui::ConsolePlace place(double row, int column) const;

    /// The line that comes so many after another, within the lines there are; 0 where there are
    /// none.
    Q_INVOKABLE double lineBeside(double number, int step) const;

    Q_INVOKABLE double newestLine() const;
    Q_INVOKABLE double firstRowOf(double number) const;  ///< `number`: a line still there
    Q_INVOKABLE double lastRowOf(double number) const;
    Q_INVOKABLE QString textOf(double number) const;
    Q_INVOKABLE void selectAll();

    /// The selected texts alone, one line feed between two.
    std::string selectedText() const;

    /// The selected lines in full, as the whole console is copied.
    std::string selectedLines() const;

    /// Takes up what happened to the console since the last call.
    void update();

    /// Whether update() would find nothing new.
    bool isUpToDate() const;

Q_SIGNALS:
    void changed();        ///< rows came or left
    void rewrapped();      ///< other rows stand where these were: another width or filter
    void filterChanged();  ///< after rewrapped()

private:
    struct Line {
        std::uint64_t position = 0;  // among all lines ever logged
        gateway::ConsoleLine line;
        QString text;  // as shown
        std::uint64_t firstRow = 0;
    };

    void setFilter(ConsoleFilter filter);
    void removeFront();
    void append();
    void appendLine(std::uint64_t position, const gateway::ConsoleLine& line);
    std::uint64_t rowsFor(const QString& text) const;
    std::uint64_t oldestPosition() const;
    const Line* lineAt(double row) const;
    const Line& lineOf(double number) const;
    double numberOf(const Line& line) const;
    std::string joinSelected(const std::function<std::string(const Line&)>& text) const;
    double oldest() const { return lines_.empty() ? 0 : static_cast<double>(removed_ + 1); }
    double newest() const;

    const gateway::GatewaySimulator& simulator_;
    ConsoleFilter filter_;
    int columns_ = std::numeric_limits<int>::max();
    std::deque<Line> lines_;
    std::uint64_t end_ = 0;
    std::uint64_t removed_ = 0;       // lines that were here once
    std::uint64_t lastPosition_ = 0;  // of the last line looked at
    ConsoleSelection selection_;
};

}  // namespace tidewright::ui
