#include "ui/ConsoleModel.h"

#include <gtest/gtest.h>

#include "WindowBench.h"

namespace tidewright::ui {
namespace {

struct ConsoleModelTest : testing::Test {
    WindowBench bench;
    ConsoleModel& model = *bench.simulatorBridge()->console();
    int inserted = 0;
    int removed = 0;
    int resets = 0;

    ConsoleModelTest() {
        QObject::connect(&model, &ConsoleModel::rowsInserted, [this] { ++inserted; });
        QObject::connect(&model, &ConsoleModel::rowsRemoved, [this] { ++removed; });
        QObject::connect(&model, &ConsoleModel::modelReset, [this] { ++resets; });
    }

    void log(int count) {
        for (int i = 0; i < count; ++i)
            bench.simulator.log(
                "SYS", "line " + std::to_string(bench.simulator.consoleAppendedCount() + 1));
        bench.advance(50);
    }

    QString text(int row) const {
        return model.data(model.index(row), ConsoleModel::TextRole).toString();
    }
};

TEST_F(ConsoleModelTest, takesUpABatchOfLinesAtOnce) {
    log(100);
    EXPECT_EQ(model.rowCount(), 100);
    EXPECT_EQ(inserted, 1);
    EXPECT_EQ(text(99), QStringLiteral("line 100"));
}

TEST_F(ConsoleModelTest, losesTheOldestLinesAtTheFront) {
    log(600);
    log(10);
    EXPECT_EQ(model.rowCount(), 600);
    EXPECT_EQ(text(0), QStringLiteral("line 11"));
    EXPECT_EQ(text(599), QStringLiteral("line 610"));
    EXPECT_EQ(removed, 1);
    EXPECT_EQ(resets, 0);
}

TEST_F(ConsoleModelTest, catchesUpWithMoreLinesThanItHolds) {
    log(5);
    log(2000);
    EXPECT_EQ(model.rowCount(), 600);
    EXPECT_EQ(text(0), QStringLiteral("line 1406"));
    EXPECT_EQ(model.numberAt(0), 1406);
}

TEST_F(ConsoleModelTest, startsAnewWhenTheConsoleIsCleared) {
    log(5);
    bench.simulatorBridge()->clearConsole();
    EXPECT_EQ(model.rowCount(), 0);
    log(2);
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(text(0), QStringLiteral("line 6"));
}

TEST_F(ConsoleModelTest, keepsTheSelectionWhileLinesLeaveAtTheTop) {
    log(600);
    model.selection()->select(100);
    model.selection()->extendTo(101);
    log(50);
    EXPECT_EQ(model.selectedText(), "00:00:00 SYS > line 100\n00:00:00 SYS > line 101");
}

TEST_F(ConsoleModelTest, forgetsWhatLeft) {
    log(600);
    model.selection()->select(2);
    model.selection()->extendTo(12);
    log(10);
    EXPECT_EQ(model.selectedText(), "00:00:00 SYS > line 11\n00:00:00 SYS > line 12");
    log(10);
    EXPECT_TRUE(model.selection()->isEmpty());
    EXPECT_EQ(model.selectedText(), "");
}

TEST_F(ConsoleModelTest, selectsEverything) {
    log(3);
    model.selectAll();
    EXPECT_EQ(model.selection()->first(), 1);
    EXPECT_EQ(model.selection()->last(), 3);
}

}  // namespace
}  // namespace tidewright::ui
