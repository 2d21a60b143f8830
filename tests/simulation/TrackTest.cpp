#include "simulation/Track.h"

#include <gtest/gtest.h>

namespace tidewright::simulation {
namespace {

using namespace std::chrono_literals;

/// A point that tells by its latitude when it was.
TrackPoint at(std::chrono::seconds second) {
    return {platform::WallTime(second), static_cast<double>(second.count()), -3.5};
}

Track secondsFrom0To(std::chrono::seconds last) {
    Track track;
    for (auto second = 0s; second <= last; ++second) track.append(at(second));
    return track;
}

TEST(TrackTest, isEmptyAtFirst) {
    EXPECT_TRUE(Track().points().empty());
    EXPECT_TRUE(Track().since(platform::WallTime(0s)).empty());
}

TEST(TrackTest, keepsTheLastHourAndNoMore) {
    const Track track = secondsFrom0To(2h);
    EXPECT_EQ(track.points().size(), 3600U);
    EXPECT_EQ(track.points().front(), at(1h + 1s));
    EXPECT_EQ(track.points().back(), at(2h));
}

TEST(TrackTest, answersWhatIsNotOlderThanAMoment) {
    const auto recent = secondsFrom0To(10s).since(platform::WallTime(7s));
    EXPECT_EQ(recent, (std::vector{at(7s), at(8s), at(9s), at(10s)}));
}

TEST(TrackTest, answersEverythingSinceBeforeItBegan) {
    EXPECT_EQ(secondsFrom0To(10s).since(platform::WallTime(-1s)).size(), 11U);
}

TEST(TrackTest, leavesNoGapWhereTheClockWasSetBack) {
    Track track = secondsFrom0To(10s);
    track.append(at(3s));
    track.append(at(4s));
    EXPECT_EQ(track.since(platform::WallTime(2s)).size(), 11U);
    EXPECT_TRUE(track.since(platform::WallTime(5s)).empty());
}

TEST(TrackTest, beginsAnewWhenCleared) {
    Track track = secondsFrom0To(10s);
    track.clear();
    track.append(at(20s));
    EXPECT_EQ(track.points().size(), 1U);
}

}  // namespace
}  // namespace tidewright::simulation
