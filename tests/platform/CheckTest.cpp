#include "platform/Check.h"

#include <gtest/gtest.h>

namespace tidewright::platform {
namespace {

TEST(CheckTest, letsAKeptPromisePass) {
    check(true, "never said");
}

TEST(CheckTest, stopsTheProgramAndSaysWhatWasWrong) {
    EXPECT_DEATH(check(false, "latitude must be finite"), "^tidewright: latitude must be finite\n");
}

}  // namespace
}  // namespace tidewright::platform
