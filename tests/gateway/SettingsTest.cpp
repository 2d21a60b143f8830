#include "gateway/Settings.h"

#include <gmock/gmock.h>

#include <set>

#include "gateway/GatewayFixture.h"

namespace tidewright::gateway {
namespace {
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct SettingsTest : GatewayFixture {
    Settings& settings = assembly.settings;

    std::string value(const std::string& name) const { return textOf(settings.at(name).read()); }

    /// Why these are refused, one a line; empty where they are taken.
    std::string refusalsOf(const Settings::Texts& texts) const {
        std::string reasons;
        for (const Refusal& each : settings.writeTexts(texts)) reasons += each.reason + "\n";
        return reasons;
    }

    std::vector<std::string> everyValue() const {
        std::vector<std::string> values;
        for (const Setting& each : settings.all()) values.push_back(textOf(each.read()));
        return values;
    }
};

/// Values that a setting may have, other than its default.
std::vector<std::string> others(const Setting& setting) {
    switch (setting.kind) {
        case SettingKind::flag:
            return {setting.initial == SettingValue(true) ? "false" : "true"};
        case SettingKind::integer:
        case SettingKind::number:
            return {textOf(setting.range.to), textOf(setting.range.from)};
        case SettingKind::position:
            return {"-33.5,151.25"};
        case SettingKind::text:
            return {"follow", "239.1.2.3"};
        case SettingKind::choice:
            break;
    }
    std::vector<std::string> values;
    for (const SettingChoice& each : setting.choices) values.push_back(each.value);
    return values;
}

/// Texts that mean nothing to a setting, or too much.
std::vector<std::string> refused(const Setting& setting) {
    switch (setting.kind) {
        case SettingKind::integer:
            return {"", "x", "0.5", textOf(setting.range.to + 1), textOf(setting.range.from - 1)};
        case SettingKind::number:
            return {"", "x", "true", textOf(setting.range.to + 0.01),
                    textOf(setting.range.from - 0.01)};
        default:
            return {"", "x", "7", "TRUE"};
    }
}

TEST_F(SettingsTest, haveEachANameOfTheirOwnALabelAndAGroup) {
    std::set<std::string> names;
    for (const Setting& each : settings.all()) {
        EXPECT_TRUE(names.insert(each.name).second) << each.name;
        EXPECT_FALSE(each.label.empty()) << each.name;
        EXPECT_FALSE(each.group.empty()) << each.name;
    }
    EXPECT_GE(names.size(), 55U);
}

TEST_F(SettingsTest, holdDefaultsThatFit) {
    for (const Setting& each : settings.all()) {
        EXPECT_TRUE(each.fits(each.initial)) << each.name;
        EXPECT_EQ(each.parse(textOf(each.initial)), each.initial) << each.name;
    }
}

TEST_F(SettingsTest, takeEveryValueThatTheyOffer) {
    for (const Setting& each : settings.all()) {
        if (each.name == "wind.low" || each.name == "wind.high") continue;  // which bind each other
        for (const std::string& text : others(each)) {
            EXPECT_EQ(refusalsOf({{each.name, text}}), "");
            EXPECT_EQ(value(each.name), text) << each.name;
        }
    }
}

TEST_F(SettingsTest, refuseWhatDoesNotFitAndSayWhatDoes) {
    const auto before = everyValue();
    for (const Setting& each : settings.all()) {
        for (const std::string& text : refused(each)) {
            const std::string reason = refusalsOf({{each.name, text}});
            EXPECT_THAT(reason, HasSubstr("« " + each.name + " »"));
            EXPECT_THAT(reason, HasSubstr("« " + text + " »"));
            EXPECT_THAT(reason, HasSubstr(each.allowed()));
        }
    }
    EXPECT_EQ(everyValue(), before);
}

TEST_F(SettingsTest, suggestTheNearestNameForOneThatDoesNotExist) {
    for (const Setting& each : settings.all()) {
        EXPECT_THAT(refusalsOf({{each.name + "x", "1"}}),
                    HasSubstr("le plus proche est « " + each.name + " »"));
    }
    EXPECT_EQ(refusalsOf({{"fault.los", "5"}}),
              "« fault.los » n'est pas un réglage ; le plus proche est « faults.loss ».\n");
}

TEST_F(SettingsTest, changeNothingWhereOneOfSeveralIsRefused) {
    const auto before = everyValue();
    EXPECT_THAT(refusalsOf({{"network.tcp-port", "3000"}, {"faults.loss", "101"}}),
                HasSubstr("faults.loss"));
    EXPECT_EQ(everyValue(), before);
}

TEST_F(SettingsTest, tellOfEveryMistakeAtOnce) {
    EXPECT_EQ(settings.writeTexts({{"faults.loss", "101"}, {"nothing", "1"}}).size(), 2U);
}

TEST_F(SettingsTest, writeThePresetFirstWhereverItStands) {
    EXPECT_EQ(refusalsOf({{"network.tcp-port", "3000"}, {"network.preset", "nke"}}), "");
    EXPECT_EQ(value("network.tcp-port"), "3000");
    EXPECT_EQ(value("network.udp-port"), "50000");
}

TEST_F(SettingsTest, judgeBothEndsOfTheWindTogether) {
    EXPECT_EQ(refusalsOf({{"wind.low", "20"}, {"wind.high", "25"}}), "");
    EXPECT_EQ(refusalsOf({{"wind.high", "12"}, {"wind.low", "10"}}), "");
    const auto before = everyValue();
    EXPECT_THAT(refusalsOf({{"wind.low", "12"}}), HasSubstr("wind.low"));
    EXPECT_THAT(refusalsOf({{"wind.high", "10"}}), HasSubstr("wind.high"));
    EXPECT_EQ(everyValue(), before);
}

TEST_F(SettingsTest, leaveOneEndOfTheWindWhereADragPushesTheOther) {
    settings.at("wind.low").drag(20.0);
    EXPECT_EQ(value("wind.high"), "21");
    settings.at("wind.high").drag(10.0);
    EXPECT_EQ(value("wind.low"), "9");
}

TEST_F(SettingsTest, makeTheFleetAnewWithItsCount) {
    EXPECT_EQ(refusalsOf({{"ais.count", "12"}}), "");
    EXPECT_EQ(engine.traffic.targets.size(), 12U);
}

TEST_F(SettingsTest, beginTheNextRunAtTheChosenHome) {
    EXPECT_EQ(refusalsOf({{"boat.home", "-33.85,151.25"}}), "");
    gateway.start();
    EXPECT_EQ(engine.state->latitude, -33.85);
    EXPECT_EQ(engine.state->longitude, 151.25);
    EXPECT_NEAR(engine.traffic.targets.front().latitude, -33.85, 0.2);
}

TEST_F(SettingsTest, tellWhoeverListensOfEveryChange) {
    int told = 0;
    const auto subscription = settings.observe([&told] { ++told; });
    for (const char* name : {"network.tag-block", "faults.no-gps", "boat.crew-steps"}) {
        const int before = told;
        settings.at(name).write(settings.at(name).initial);
        EXPECT_GT(told, before) << name;
    }
}

TEST_F(SettingsTest, countTheFaultsThatAreOnAndClearThem) {
    EXPECT_THAT(settings.activeFaults(), IsEmpty());
    EXPECT_EQ(refusalsOf({{"faults.no-gps", "true"}, {"faults.latency", "50"}, {"ais.count", "3"}}),
              "");
    EXPECT_THAT(settings.activeFaults(),
                ElementsAre(&settings.at("faults.no-gps"), &settings.at("faults.latency")));
    settings.clearFaults();
    EXPECT_THAT(settings.activeFaults(), IsEmpty());
    EXPECT_EQ(value("ais.count"), "3");
}

TEST_F(SettingsTest, goBackToTheValuesThatWereKept) {
    EXPECT_EQ(refusalsOf({{"network.preset", "nke"}, {"network.tcp-port", "3000"}}), "");
    settings.keepForReset();
    const auto kept = everyValue();
    for (const Setting& each : settings.all())
        if (each.name != "wind.low") each.write(*each.parse(others(each).front()));
    ASSERT_NE(everyValue(), kept);
    settings.reset();
    EXPECT_EQ(everyValue(), kept);
}

}  // namespace
}  // namespace tidewright::gateway
