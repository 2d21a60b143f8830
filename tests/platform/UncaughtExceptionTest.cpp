#include "platform/UncaughtException.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <new>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace tidewright::platform {
namespace {

using testing::ExitedWithCode;
using testing::KilledBySignal;

/// Throws what nobody catches, on a thread of its own.
template <typename Exception>
void throwUncaught(Exception exception) {
    endWhenResourcesRunOut();
    std::thread([&] { throw exception; }).join();
}

void failWith(int number) {
    throwUncaught(std::system_error(number, std::system_category(), "somewhere"));
}

struct UncaughtExceptionDeathTest : testing::Test {
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(UncaughtExceptionDeathTest, endsWithOneLineWhenMemoryRunsOut) {
    EXPECT_EXIT(throwUncaught(std::bad_alloc()), ExitedWithCode(1),
                "^ERREUR : Mémoire insuffisante\\.\n$");
    EXPECT_EXIT(failWith(ENOMEM), ExitedWithCode(1), "^ERREUR : Mémoire insuffisante\\.\n$");
}

TEST_F(UncaughtExceptionDeathTest, endsWithOneLineWhenDescriptorsRunOut) {
    for (const int number : {EMFILE, ENFILE})
        EXPECT_EXIT(failWith(number), ExitedWithCode(1),
                    "^ERREUR : Trop de fichiers et de connexions ouverts : le système n'en accorde "
                    "plus\\.\n$");
}

TEST_F(UncaughtExceptionDeathTest, endsWithOneLineWhenTheHostRefusesSomethingElse) {
    EXPECT_EXIT(failWith(EAGAIN), ExitedWithCode(1),
                "^ERREUR : Le système n'accorde plus les ressources nécessaires\\.\n$");
}

TEST_F(UncaughtExceptionDeathTest, abortsOnAMistakeOfTheProgram) {
    EXPECT_EXIT(throwUncaught(std::logic_error("wrong")), KilledBySignal(SIGABRT), "wrong");
}

}  // namespace
}  // namespace tidewright::platform
