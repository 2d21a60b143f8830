#include "ui/DialText.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tidewright::ui {
namespace {

TEST(DialTextTest, setsTheUnitApart) {
    EXPECT_EQ(dialText(12.34, 1, "nd"), QStringLiteral("12.3 nd"));
    EXPECT_EQ(dialText(2000, 0, ""), QStringLiteral("2000"));
}

TEST(DialTextTest, attachesADegreeSign) {
    EXPECT_EQ(dialText(-180, 0, "°"), QString::fromUtf8("-180°"));
}

double number(const char* text, const char* unit) {
    return dialNumber(QString::fromUtf8(text), QString::fromUtf8(unit));
}

TEST(DialTextTest, readsANumberWithPointOrCommaAndItsUnit) {
    EXPECT_EQ(number("12.5", "nd"), 12.5);
    EXPECT_EQ(number(" -12,5 nd ", "nd"), -12.5);
    EXPECT_EQ(number("42°", "°"), 42);
}

TEST(DialTextTest, readsNothingElse) {
    for (const char* text : {"", "nd", "1e1", "1.", ".5", "1 2", "inf", "nan", "12 m"})
        EXPECT_TRUE(std::isnan(number(text, "nd"))) << text;
}

}  // namespace
}  // namespace tidewright::ui
