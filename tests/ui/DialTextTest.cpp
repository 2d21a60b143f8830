#include "ui/DialText.h"

#include <gtest/gtest.h>

namespace tidewright::ui {
namespace {

QString dialText(const char* format, double value, const char* unit) {
    return DialText::of(QString::fromUtf8(format), value, QString::fromUtf8(unit));
}

TEST(DialTextTest, setsTheUnitApart) {
    EXPECT_EQ(dialText("%.1f", 12.34, "nd"), QStringLiteral("12.3 nd"));
}

TEST(DialTextTest, attachesADegreeSign) {
    EXPECT_EQ(dialText("%.0f", -180, "°"), QString::fromUtf8("-180°"));
}

}  // namespace
}  // namespace tidewright::ui
