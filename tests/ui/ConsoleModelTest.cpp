#include "ui/ConsoleModel.h"

#include <gtest/gtest.h>

#include "WindowBench.h"

namespace tidewright::ui {
namespace {

struct ConsoleModelTest : testing::Test {
    WindowBench bench;
    ConsoleModel& model = *bench.simulatorBridge()->console();
    int changes = 0;

    ConsoleModelTest() {
        QObject::connect(&model, &ConsoleModel::changed, [this] { ++changes; });
    }

    void log(int count) {
        for (int i = 0; i < count; ++i)
            bench.simulator.log(
                "SYS", "line " + std::to_string(bench.simulator.consoleAppendedCount() + 1));
        bench.advance(200);
    }

    void logOne(const char* transport, const std::string& text) {
        bench.simulator.log(transport, text);
        bench.advance(200);
    }

    int rowCount() const { return static_cast<int>(model.end() - model.begin()); }

    /// Row `index` of those there are.
    ConsoleRow row(int index) const { return model.row(model.begin() + index); }
    QString text(int index) const { return row(index).text; }
};

TEST_F(ConsoleModelTest, takesUpABatchOfLinesAtOnce) {
    log(100);
    EXPECT_EQ(rowCount(), 100);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(text(99), QStringLiteral("line 100"));
    EXPECT_EQ(row(99).time, QStringLiteral("00:00:00"));
    EXPECT_EQ(row(99).transport, QStringLiteral("SYS"));
}

TEST_F(ConsoleModelTest, keepsTheNumberOfARowWhileOthersLeaveAtTheFront) {
    log(600);
    const double hundredth = model.begin() + 99;
    log(10);
    EXPECT_EQ(rowCount(), 600);
    EXPECT_EQ(text(0), QStringLiteral("line 11"));
    EXPECT_EQ(text(599), QStringLiteral("line 610"));
    EXPECT_EQ(model.row(hundredth).text, QStringLiteral("line 100"));
}

TEST_F(ConsoleModelTest, catchesUpWithMoreLinesThanItHolds) {
    log(5);
    log(2000);
    EXPECT_EQ(rowCount(), 600);
    EXPECT_EQ(text(0), QStringLiteral("line 1406"));
}

TEST_F(ConsoleModelTest, hasNothingInRowsThatAreNotThere) {
    log(3);
    EXPECT_EQ(model.row(model.end()), ConsoleRow());
    EXPECT_EQ(model.row(model.begin() - 1), ConsoleRow());
}

TEST_F(ConsoleModelTest, startsAnewWhenTheConsoleIsCleared) {
    log(5);
    bench.simulatorBridge()->clearConsole();
    EXPECT_EQ(rowCount(), 0);
    log(2);
    EXPECT_EQ(rowCount(), 2);
    EXPECT_EQ(text(0), QStringLiteral("line 6"));
}

TEST_F(ConsoleModelTest, wrapsALineAfterSoManyColumns) {
    model.setColumns(4);
    logOne("TCP", "abcdefghij");
    ASSERT_EQ(rowCount(), 3);
    EXPECT_EQ(text(0), QStringLiteral("abcd"));
    EXPECT_EQ(row(0).whole, QStringLiteral("abcdefghij"));
    EXPECT_EQ(text(2), QStringLiteral("ij"));
    EXPECT_EQ(row(2).from, 8);
    EXPECT_EQ(row(2).number, row(0).number);
    EXPECT_TRUE(row(2).time.isEmpty());
    EXPECT_TRUE(row(2).whole.isEmpty());
}

TEST_F(ConsoleModelTest, fillsItsRowsToTheLastColumn) {
    model.setColumns(5);
    logOne("TCP", "abcdefghij");
    EXPECT_EQ(rowCount(), 2);
    logOne("TCP", "");
    EXPECT_EQ(rowCount(), 3);
}

TEST_F(ConsoleModelTest, wrapsAnewForAnotherWidthUnderNewRowNumbers) {
    logOne("TCP", "abcdefghij");
    const double end = model.end();
    model.setColumns(5);
    EXPECT_EQ(model.begin(), end);
    EXPECT_EQ(rowCount(), 2);
    EXPECT_EQ(text(1), QStringLiteral("fghij"));
}

TEST_F(ConsoleModelTest, findsThePlaceInALineUnderARowAndColumn) {
    model.setColumns(4);
    logOne("TCP", "abcdefghij");
    logOne("TCP", "xyz");
    const auto place = [&](int row, int column) {
        const ConsolePlace found = model.place(model.begin() + row, column);
        return std::pair(found.number, found.column);
    };
    EXPECT_EQ(place(1, 2), std::pair(1.0, 6));
    EXPECT_EQ(place(2, 4), std::pair(1.0, 10));
    EXPECT_EQ(place(3, -1), std::pair(2.0, 0));
    EXPECT_EQ(place(99, 99), std::pair(2.0, 3));
}

TEST_F(ConsoleModelTest, keepsTheSelectionWhileLinesLeaveAtTheFront) {
    log(600);
    model.selection()->selectLines(100, 101);
    log(50);
    EXPECT_EQ(model.selectedLines(), "00:00:00 SYS > line 100\n00:00:00 SYS > line 101");
    EXPECT_EQ(model.selectedText(), "line 100\nline 101");
}

TEST_F(ConsoleModelTest, forgetsWhatLeft) {
    log(600);
    model.selection()->selectLines(2, 12);
    log(10);
    EXPECT_EQ(model.selectedText(), "line 11\nline 12");
    log(10);
    EXPECT_TRUE(model.selection()->isEmpty());
    EXPECT_EQ(model.selectedText(), "");
}

TEST_F(ConsoleModelTest, selectsCharactersOfOneLine) {
    log(3);
    model.selection()->begin(2, 6);
    model.selection()->extendTo(2, 1);
    EXPECT_EQ(model.selectedText(), "ine 2");
    EXPECT_EQ(model.selectedLines(), "00:00:00 SYS > line 2");
}

TEST_F(ConsoleModelTest, selectsNothingWhereASelectionOnlyBegan) {
    log(3);
    model.selection()->begin(2, 3);
    EXPECT_TRUE(model.selection()->isEmpty());
    EXPECT_EQ(model.selectedText(), "");
    EXPECT_EQ(model.selectedLines(), "");
}

TEST_F(ConsoleModelTest, selectsWholeLinesAcrossSeveral) {
    log(3);
    model.selection()->begin(3, 4);
    model.selection()->extendLinesTo(2);
    EXPECT_EQ(model.selectedText(), "line 2\nline 3");
}

TEST_F(ConsoleModelTest, selectsEverything) {
    log(3);
    model.selectAll();
    EXPECT_EQ(model.selection()->first(), 1);
    EXPECT_EQ(model.selection()->last(), 3);
}

TEST_F(ConsoleModelTest, showsOnlyLinesThatPassTheFilterNowAndLater) {
    logOne("TCP", "$GPRMC,1");
    logOne("UDP", "$GPRMC,1");
    logOne("TCP", "$GPGGA,1");
    model.setTransport(QStringLiteral("TCP"));
    EXPECT_EQ(rowCount(), 2);
    model.setWords(QStringLiteral("RMC"));
    EXPECT_EQ(rowCount(), 1);
    logOne("UDP", "$GPRMC,2");
    logOne("TCP", "$GPRMC,2");
    EXPECT_EQ(rowCount(), 2);
    EXPECT_EQ(text(1), QStringLiteral("$GPRMC,2"));
    model.setTransport({});
    model.setWords({});
    EXPECT_EQ(rowCount(), 5);
}

TEST_F(ConsoleModelTest, losesLinesThatAFilterShowsTogetherWithTheOthers) {
    logOne("SYS", "kept");
    model.setWords(QStringLiteral("kept"));
    EXPECT_EQ(rowCount(), 1);
    log(599);
    EXPECT_EQ(rowCount(), 1);
    log(1);
    EXPECT_EQ(rowCount(), 0);
}

TEST_F(ConsoleModelTest, tellsHowManyLinesAPauseMissed) {
    log(2);
    bench.simulatorBridge()->setConsolePaused(true);
    log(3);
    EXPECT_EQ(rowCount(), 2);
    bench.simulatorBridge()->setConsolePaused(false);
    EXPECT_EQ(rowCount(), 2);
    log(1);
    ASSERT_EQ(rowCount(), 4);
    EXPECT_EQ(text(2), QStringLiteral("3 lignes manquées pendant la pause"));
    model.setTransport(QStringLiteral("SYS"));
    EXPECT_EQ(text(2), QStringLiteral("3 lignes manquées pendant la pause"));
    log(599);
    EXPECT_EQ(text(0), QStringLiteral("3 lignes manquées pendant la pause"));
    log(1);
    EXPECT_EQ(rowCount(), 600);
}

TEST_F(ConsoleModelTest, countsNothingMissedWithoutAPause) {
    log(2);
    bench.simulatorBridge()->setConsolePaused(true);
    bench.simulatorBridge()->setConsolePaused(false);
    log(1);
    EXPECT_EQ(rowCount(), 3);
}

TEST_F(ConsoleModelTest, cutsTextsThatNoReaderWouldReadToTheEnd) {
    logOne("TCP", std::string(5000, 'x'));
    EXPECT_EQ(text(0).size(), ConsoleModel::longestText);
    model.selection()->selectLines(1, 1);
    EXPECT_EQ(model.selectedText().size(), 5000);
}

}  // namespace
}  // namespace tidewright::ui
