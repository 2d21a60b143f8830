#include "ui/PortNumber.h"

#include <gtest/gtest.h>

namespace tidewright::ui {
namespace {

TEST(PortNumberTest, takesWholeNumbersFrom0To65535) {
    EXPECT_EQ(portNumber("0"), 0);
    EXPECT_EQ(portNumber("2000"), 2000);
    EXPECT_EQ(portNumber("65535"), 65535);
}

TEST(PortNumberTest, passesOverBlanksAroundIt) {
    EXPECT_EQ(portNumber(" 2001 "), 2001);
    EXPECT_EQ(portNumber("2001\t\n"), 2001);
}

TEST(PortNumberTest, refusesEverythingElse) {
    for (const char* text : {"", " ", "65536", "-1", "+1", "1 2", "1.0", "12a", "99999999999"})
        EXPECT_EQ(portNumber(text), std::nullopt) << text;
}

}  // namespace
}  // namespace tidewright::ui
