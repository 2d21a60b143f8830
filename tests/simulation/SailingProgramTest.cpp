#include "simulation/SailingProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <vector>

namespace tidewright::simulation {
namespace {

using enum PointOfSail;

void expectLeg(SailingProgram program, std::int64_t index, const LegTemplate& expected) {
    const LegTemplate leg = legTemplate(program, index);
    EXPECT_EQ(leg.sail, expected.sail) << index;
    EXPECT_EQ(leg.duration, expected.duration) << index;
    EXPECT_EQ(leg.nominalWind, expected.nominalWind) << index;
    EXPECT_EQ(leg.sideRule, expected.sideRule) << index;
}

/// Two rounds after zero and the one before it.
void expectCycle(SailingProgram program, const std::vector<LegTemplate>& legs) {
    const auto length = static_cast<std::int64_t>(legs.size());
    for (std::int64_t i = 0; i < length; ++i)
        for (const std::int64_t round : {-1, 0, 1})
            expectLeg(program, i + round * length, legs.at(static_cast<std::size_t>(i)));
}

TEST(SailingProgramTest, isListedInTheOrderOfThePicker) {
    EXPECT_THAT(allSailingPrograms,
                testing::ElementsAre(SailingProgram::sequence, SailingProgram::beat,
                                     SailingProgram::reach, SailingProgram::run));
}

TEST(SailingProgramTest, isWrittenByItsName) {
    EXPECT_EQ(rawValue(SailingProgram::sequence), "sequence");
    EXPECT_EQ(rawValue(SailingProgram::beat), "beat");
    EXPECT_EQ(rawValue(SailingProgram::reach), "reach");
    EXPECT_EQ(rawValue(SailingProgram::run), "run");
}

TEST(SailingProgramTest, isReadFromItsNameAndFromNothingElse) {
    for (const SailingProgram program : allSailingPrograms)
        EXPECT_EQ(sailingProgram(rawValue(program)), program);
    for (const auto text : {"", "Beat", "beats", "louvoyage"})
        EXPECT_EQ(sailingProgram(text), std::nullopt) << text;
}

TEST(SailingProgramTest, hasAFrenchLabel) {
    EXPECT_EQ(label(SailingProgram::sequence), "Enchaîné");
    EXPECT_EQ(label(SailingProgram::beat), "Louvoyage");
    EXPECT_EQ(label(SailingProgram::reach), "Travers");
    EXPECT_EQ(label(SailingProgram::run), "Portant");
}

TEST(SailingProgramTest, hasAFrenchDescription) {
    EXPECT_EQ(description(SailingProgram::sequence),
              "Près, travers et portant à la suite, avec virements de bord et empannages. Le vent "
              "change par grandes zones.");
    EXPECT_EQ(description(SailingProgram::beat),
              "Louvoyage au près : bordées de 2 à 4 minutes, virement de bord à chaque fin de "
              "bordée.");
    EXPECT_EQ(description(SailingProgram::reach),
              "Allures de travers (bon plein, travers, largue), sans manœuvre fréquente.");
    EXPECT_EQ(description(SailingProgram::run),
              "Portant au grand largue : bordées de 2,5 à 5 minutes, empannage à chaque fin de "
              "bordée.");
}

TEST(SailingProgramTest, sailsEveryPointOfSailInSequence) {
    expectCycle(SailingProgram::sequence, {{beat, 540, 12, 0},
                                           {closeReach, 300, 14, 0},
                                           {broadReach, 360, 15, 0},
                                           {run, 540, 14, -1},
                                           {beamReach, 300, 13, 0},
                                           {beat, 600, 10, +1},
                                           {closeReach, 240, 15, 0},
                                           {run, 480, 12, 0}});
}

TEST(SailingProgramTest, beatsThroughSixWinds) {
    expectCycle(SailingProgram::beat, {{beat, 600, 12, 0},
                                       {beat, 600, 10, 0},
                                       {beat, 600, 14, 0},
                                       {beat, 600, 15, 0},
                                       {beat, 600, 11, 0},
                                       {beat, 600, 13, 0}});
}

TEST(SailingProgramTest, runsThroughFiveWinds) {
    expectCycle(SailingProgram::run, {{run, 600, 12, 0},
                                      {run, 600, 14, 0},
                                      {run, 600, 10, 0},
                                      {run, 600, 15, 0},
                                      {run, 600, 13, 0}});
}

TEST(SailingProgramTest, reachesToAlternateSidesInCyclesOfFourAndFive) {
    const std::array sails{closeReach, beamReach, broadReach, beamReach};
    const std::array winds{13.0, 15.0, 12.0, 16.0, 11.0};
    std::vector<LegTemplate> legs;
    for (std::size_t i = 0; i < 20; ++i)
        legs.push_back({sails.at(i % 4), 360, winds.at(i % 5), i % 2 == 0 ? +1.0 : -1.0});
    expectCycle(SailingProgram::reach, legs);
}

TEST(SailingProgramTest, runsOnBelowZero) {
    expectLeg(SailingProgram::sequence, -1, {run, 480, 12, 0});
    expectLeg(SailingProgram::sequence, -5, {run, 540, 14, -1});
    expectLeg(SailingProgram::beat, -1, {beat, 600, 13, 0});
    expectLeg(SailingProgram::reach, -1, {beamReach, 360, 11, -1});
    expectLeg(SailingProgram::run, -1, {run, 600, 13, 0});
    expectLeg(SailingProgram::sequence, INT64_MIN, {beat, 540, 12, 0});
}

TEST(SailingProgramTest, stopsTheProgramWhenItIsNone) {
    const auto none = static_cast<SailingProgram>(9);
    EXPECT_DEATH(rawValue(none), "no such sailing programme");
    EXPECT_DEATH(label(none), "no such sailing programme");
    EXPECT_DEATH(description(none), "no such sailing programme");
    EXPECT_DEATH(legTemplate(none, 0), "no such sailing programme");
}

}  // namespace
}  // namespace tidewright::simulation
