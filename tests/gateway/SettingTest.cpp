#include "gateway/Setting.h"

#include <gtest/gtest.h>

#include <clocale>

namespace tidewright::gateway {
namespace {

Setting ofKind(SettingKind kind) {
    Setting setting{.name = "name", .label = "Nom", .kind = kind, .read = {}, .write = {}};
    setting.range = {.from = 0, .to = 65535};
    setting.choices = {{"auto", "Auto"}, {"off", "Non"}};
    return setting;
}

Setting number(double from, double to) {
    Setting setting = ofKind(SettingKind::number);
    setting.range = {.from = from, .to = to, .unit = "Hz"};
    return setting;
}

TEST(SettingTest, readsPlainNumbersAndNothingElse) {
    const Setting setting = number(-10, 20);
    EXPECT_EQ(setting.parse("5"), SettingValue(5.0));
    EXPECT_EQ(setting.parse("-0.25"), SettingValue(-0.25));
    EXPECT_EQ(setting.parse("007.50"), SettingValue(7.5));
    for (const char* text : {"", "-", ".5", "5.", "+5", "1e1", " 5", "5 ", "5,0", "inf", "nan",
                             "0x5", "--5", "5.0.0", "٣"})
        EXPECT_EQ(setting.parse(text), std::nullopt) << text;
}

TEST(SettingTest, takesBothEndsOfItsRangeAndNothingBeyond) {
    const Setting setting = number(0, 20);
    EXPECT_TRUE(setting.parse("0"));
    EXPECT_TRUE(setting.parse("20"));
    EXPECT_FALSE(setting.parse("-0.1"));
    EXPECT_FALSE(setting.parse("20.0001"));
}

TEST(SettingTest, bindsOnlySlidersToItsStep) {
    Setting setting = number(0, 20);
    setting.range.step = 5;
    EXPECT_TRUE(setting.parse("7.3"));
}

TEST(SettingTest, readsWholeNumbersWhereItIsWhole) {
    const Setting setting = ofKind(SettingKind::integer);
    EXPECT_EQ(setting.parse("65535"), SettingValue(std::int64_t{65535}));
    for (const char* text : {"65536", "-1", "1.0", "1e3", "+1", "", "99999999999999999999"})
        EXPECT_FALSE(setting.parse(text)) << text;
}

TEST(SettingTest, readsFlagsByTheirTwoWords) {
    const Setting setting = ofKind(SettingKind::flag);
    EXPECT_EQ(setting.parse("true"), SettingValue(true));
    EXPECT_EQ(setting.parse("false"), SettingValue(false));
    for (const char* text : {"1", "0", "True", "oui", ""})
        EXPECT_FALSE(setting.parse(text)) << text;
}

TEST(SettingTest, readsItsChoicesAndNoOther) {
    const Setting setting = ofKind(SettingKind::choice);
    EXPECT_EQ(setting.parse("off"), SettingValue(std::string("off")));
    EXPECT_FALSE(setting.parse("Off"));
    EXPECT_FALSE(setting.parse("Non"));
    EXPECT_EQ(setting.rangeText(), "auto, off");
}

TEST(SettingTest, readsPositionsSouthAndWestNegative) {
    const Setting setting = ofKind(SettingKind::position);
    EXPECT_EQ(setting.parse("-33.5,151"), SettingValue(simulation::Position{-33.5, 151}));
    EXPECT_TRUE(setting.parse("90,-180"));
    for (const char* text : {"90.1,0", "0,180.1", "47.4", "47.4;-3", "47.4, -3", "47,4,-3", ","})
        EXPECT_FALSE(setting.parse(text)) << text;
}

TEST(SettingTest, isNoValueOfAnotherKind) {
    EXPECT_FALSE(number(0, 20).fits(std::int64_t{5}));
    EXPECT_FALSE(number(0, 20).fits(true));
    EXPECT_FALSE(number(0, 20).fits(std::string("5")));
}

TEST(SettingTest, writesValuesAsItReadsThemWhateverTheLocale) {
    std::setlocale(LC_ALL, "fr_FR.UTF-8");
    EXPECT_EQ(textOf(0.1), "0.1");
    EXPECT_EQ(textOf(1e-7), "0.0000001");
    EXPECT_EQ(textOf(100.0), "100");
    EXPECT_EQ(textOf(simulation::Position{47.4, -3.55}), "47.4,-3.55");
    EXPECT_EQ(textOf(true), "true");
    std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace tidewright::gateway
