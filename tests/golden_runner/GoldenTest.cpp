#include "golden_runner/Golden.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace tidewright::golden {
namespace {

struct GoldenTest : testing::Test {
    std::istringstream input;

    Table read(const std::string& text) {
        input.str(text);
        return {"sample", input};
    }
};

TEST_F(GoldenTest, readsTheCellsUnderTheirColumns) {
    Table table = read("heading\tname\n359.5\tPEN\\tDUICK\n");
    const Row& row = table.rows().front();
    EXPECT_EQ(row.number("heading"), 359.5);
    EXPECT_EQ(row.text("name"), "PEN\tDUICK");
}

TEST_F(GoldenTest, saysWhereARowHasACellTooMany) {
    EXPECT_THROW(read("heading\n1\n2\t3\n"), Unreadable);
    EXPECT_THROW(read("heading\tname\n1\n"), Unreadable);
}

TEST_F(GoldenTest, wantsAtLeastOneRow) {
    EXPECT_THROW(read(""), Unreadable);
    EXPECT_THROW(read("heading\n"), Unreadable);
}

TEST_F(GoldenTest, wantsTheColumnsThatAreAskedFor) {
    Table table = read("heading\n1\n");
    EXPECT_THROW(table.rows().front().text("depth"), Unreadable);
    EXPECT_THROW(table.rowsWhere("depth", "1"), Unreadable);
}

TEST_F(GoldenTest, takesNothingButAWholeNumberForANumber) {
    Table table = read("value\n12 \n");
    EXPECT_THROW(table.rows().front().number("value"), Unreadable);
    EXPECT_THROW(table.rows().front().integer("value"), Unreadable);
    EXPECT_THROW(table.rows().front().natural("value"), Unreadable);
}

TEST_F(GoldenTest, readsHexadecimalNumbersWithTheirPrefixOnly) {
    Table table = read("bits\tshort\tbare\n0x00FF\t0\t00FF\n");
    const Row& row = table.rows().front();
    EXPECT_EQ(row.hex("bits"), 255U);
    EXPECT_THROW(row.hex("short"), Unreadable);
    EXPECT_THROW(row.hex("bare"), Unreadable);
}

TEST_F(GoldenTest, neverFindsAValueThatIsNotANumberCloseEnough) {
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    Table table = read("angle\n90\n");
    const Row& row = table.rows().front();
    const int before = failures();
    row.expectNear("angle", notANumber, 1);
    row.expectClose("angle", notANumber);
    row.expectAngle("angle", notANumber, 1);
    EXPECT_EQ(failures(), before + 3);
}

TEST_F(GoldenTest, comparesAnglesAcrossNorth) {
    Table table = read("angle\n359.9\n");
    const int before = failures();
    table.rows().front().expectAngle("angle", 0.1, 0.3);
    EXPECT_EQ(failures(), before);
    table.rows().front().expectAngle("angle", 0.1, 0.1);
    EXPECT_EQ(failures(), before + 1);
}

TEST_F(GoldenTest, countsTheRowsTakenForComparison) {
    Table table = read("case\n1\n2\n1\n");
    EXPECT_EQ(table.taken(), 0U);
    EXPECT_EQ(table.rowsWhere("case", "1").size(), 2U);
    EXPECT_EQ(table.taken(), 2U);
}

}  // namespace
}  // namespace tidewright::golden
