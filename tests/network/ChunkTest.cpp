#include "network/Chunk.h"

#include <gtest/gtest.h>

#include "support/Pipe.h"
#include "support/TemporaryFile.h"

namespace tidewright::network {
namespace {

TEST(ChunkTest, isWhatIsThere) {
    Pipe pipe;
    pipe.write("abc");
    EXPECT_EQ(readChunk(pipe.reader()).bytes, "abc");
}

TEST(ChunkTest, holdsNoMoreThanItsMaximum) {
    const TemporaryFile file(std::string(Chunk::maximumBytes + 1, 'x'));
    const FileDescriptor descriptor = file.open();
    EXPECT_EQ(readChunk(descriptor.number()).bytes.size(), Chunk::maximumBytes);
    EXPECT_EQ(readChunk(descriptor.number()).bytes, "x");
}

TEST(ChunkTest, isEmptyAtTheEndAndAfterAnError) {
    Pipe pipe;
    pipe.close();
    const Chunk atTheEnd = readChunk(pipe.reader());
    EXPECT_EQ(atTheEnd.bytes, "");
    EXPECT_FALSE(atTheEnd.isLater);
    const Chunk afterAnError = readChunk(-1);
    EXPECT_EQ(afterAnError.bytes, "");
    EXPECT_FALSE(afterAnError.isLater);
}

TEST(ChunkTest, saysThatItComesLaterWhereReadingDoesNotWait) {
    Pipe pipe;
    pipe.doNotBlock();
    EXPECT_TRUE(readChunk(pipe.reader()).isLater);
}

}  // namespace
}  // namespace tidewright::network
