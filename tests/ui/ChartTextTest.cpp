#include "ui/ChartText.h"

#include <gtest/gtest.h>

namespace tidewright::ui {
namespace {

ChartScene atTheEquator() {
    ChartScene scene;
    scene.heading = 5.4;
    return scene;
}

TEST(ChartTextTest, tellsTheRangeTheHeadingAndThatNobodyIsAround) {
    EXPECT_EQ(describe(atTheEquator(), 4630),
              "Nord en haut, 2.5 NM d'ouest en est. Bateau au cap 005°. Aucun navire AIS.");
}

TEST(ChartTextTest, tellsWhereTheAnchorIs) {
    ChartScene scene = atTheEquator();
    scene.anchorage =
        ChartAnchorage{.anchor = {-30.0 / 111'320, 0}, .swingRadius = 36.9, .chainOut = 45};
    EXPECT_EQ(describe(scene, 100),
              "Nord en haut, 100 m d'ouest en est. Bateau au cap 005°. Au mouillage, à 30 m de "
              "l'ancre, qui est au 180° ; cercle d'évitage de 37 m, chaîne de 45 m. Aucun navire "
              "AIS.");
}

TEST(ChartTextTest, tellsHowLongTheTrackIs) {
    ChartScene scene = atTheEquator();
    scene.track = {{}, {}};
    const auto text = [&](int seconds) {
        scene.trackTime = std::chrono::seconds(seconds);
        return describe(scene, 100);
    };
    EXPECT_NE(text(59).find(" Trace de moins d'une minute. "), std::string::npos);
    EXPECT_NE(text(61).find(" Trace de la dernière minute. "), std::string::npos);
    EXPECT_NE(text(1800).find(" Trace des 30 dernières minutes. "), std::string::npos);
}

TEST(ChartTextTest, namesTheThreeNearestVessels) {
    ChartScene scene = atTheEquator();
    const auto vessel = [](const char* name, double north) {
        return ChartVessel{.name = name, .place = {north / 111'320, 0}};
    };
    scene.vessels = {vessel("IROISE", 926)};
    EXPECT_TRUE(describe(scene, 100).ends_with(" Navire AIS : IROISE à 0.5 NM au 000°."));
    scene.vessels = {vessel("IROISE", 50), vessel("ALIZE", -926), vessel("KEREON", 1852),
                     vessel("GALION", 3704)};
    EXPECT_TRUE(describe(scene, 100)
                    .ends_with(" Navires AIS les plus proches : IROISE à 50 m au 000°, ALIZE à 0.5 "
                               "NM au 180°, KEREON à "
                               "1.0 NM au 000°."));
}

}  // namespace
}  // namespace tidewright::ui
