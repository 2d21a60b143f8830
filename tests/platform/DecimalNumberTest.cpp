#include "platform/DecimalNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tidewright::platform {
namespace {

using Limits = std::numeric_limits<double>;

TEST(DecimalNumberTest, readsPointAndExponent) {
    EXPECT_EQ(decimalNumber("-12.5"), -12.5);
    EXPECT_EQ(decimalNumber("95."), 95);
    EXPECT_EQ(decimalNumber("-.5"), -0.5);
    EXPECT_EQ(decimalNumber("1e3"), 1000);
    EXPECT_EQ(decimalNumber("25E-1"), 2.5);
}

TEST(DecimalNumberTest, givesTheNearestNumber) {
    EXPECT_EQ(decimalNumber("0.1"), 0.1);
    EXPECT_EQ(decimalNumber("9007199254740993"), 9007199254740992.0);  // a tie, to the even one
    EXPECT_EQ(decimalNumber("9007199254740993.0000000000000000000001"), 9007199254740994.0);
    EXPECT_EQ(decimalNumber("2.2250738585072011e-308"), 0x0.fffffffffffffp-1022);
}

TEST(DecimalNumberTest, readsTheWholeTextOrNothing) {
    for (const char* text :
         {"", " 1", "1 ", "+1", "--1", "-", ".", "1e", "1e+", "1,5", "0x10", "1_0"})
        EXPECT_EQ(decimalNumber(text), std::nullopt) << text;
}

TEST(DecimalNumberTest, refusesANumberThatIsTooLarge) {
    EXPECT_EQ(decimalNumber("1.7976931348623157e308"), Limits::max());
    for (const char* text : {"1.7976931348623159e308", "-1e309", "1e99999999999999999999"})
        EXPECT_EQ(decimalNumber(text), std::nullopt) << text;
}

TEST(DecimalNumberTest, refusesANumberThatIsTooSmallButNotZero) {
    EXPECT_EQ(decimalNumber("4.9e-324"), Limits::denorm_min());
    for (const char* text : {"2e-324", "-0.001e-400", "1e-99999999999999999999"})
        EXPECT_EQ(decimalNumber(text), std::nullopt) << text;
    EXPECT_EQ(decimalNumber("0e-400"), 0);
    EXPECT_EQ(decimalNumber("0.00E9999"), 0);
    EXPECT_TRUE(std::signbit(decimalNumber("-0").value()));
}

TEST(DecimalNumberTest, readsWhatIsNotFinite) {
    EXPECT_EQ(decimalNumber("inf"), Limits::infinity());
    EXPECT_EQ(decimalNumber("-Infinity"), -Limits::infinity());
    EXPECT_TRUE(std::isnan(decimalNumber("nan").value()));
}

}  // namespace
}  // namespace tidewright::platform
