#include "network/OutputFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <fstream>
#include <iterator>

#include "support/Pipe.h"
#include "support/TemporaryFile.h"

namespace tidewright::network {
namespace {
using testing::EndsWith;

struct OutputFileTest : testing::Test {
    TemporaryFile log;
    std::atomic<bool> isAbandoned = false;

    static OutputFile open(const std::string& path) {
        return std::get<OutputFile>(OutputFile::open(path));
    }

    static std::string whyNot(const std::string& path) {
        return std::get<OutputFile::Failure>(OutputFile::open(path)).reason;
    }

    std::string content() const {
        std::ifstream file(log.path(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

/// Lets no file grow past a size, for a while.
struct FileSizeLimit {
    rlimit before{};

    explicit FileSizeLimit(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &before); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
};

TEST_F(OutputFileTest, replacesWhatTheFileHeld) {
    log.append("what was there before\r\n");
    EXPECT_EQ(open(log.path()).write("$one\r\n$two\r\n", isAbandoned), std::nullopt);
    EXPECT_EQ(content(), "$one\r\n$two\r\n");
}

TEST_F(OutputFileTest, saysWhyItCannotBeOpened) {
    EXPECT_EQ(whyNot("/"), "c'est un dossier.");
    EXPECT_EQ(whyNot(log.path() + ".none/log"), "son dossier n'existe pas.");
    EXPECT_EQ(whyNot(log.path() + "/log"), "son dossier n'existe pas.");
}

TEST_F(OutputFileTest, endsWithAWholeSentenceWhereTheFileMayNotGrow) {
    const OutputFile file = open(log.path());
    const FileSizeLimit limit(14);
    const auto failure = file.write("$one\r\n$two\r\n$three\r\n", isAbandoned);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, "il est devenu trop grand.");
    EXPECT_EQ(content(), "$one\r\n$two\r\n");
}

TEST_F(OutputFileTest, saysThatTheDiskIsFull) {
    const auto failure = open("/dev/full").write("$one\r\n", isAbandoned);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, "il n'y a plus de place.");
    EXPECT_FALSE(failure->hasReaderLeft);
}

TEST_F(OutputFileTest, saysThatTheReaderOfAPipeHasLeft) {
    std::signal(SIGPIPE, SIG_IGN);
    Pipe pipe;
    const OutputFile file = open(pipe.path());
    EXPECT_EQ(file.write("$one\r\n", isAbandoned), std::nullopt);
    EXPECT_EQ(pipe.read(), "$one\r\n");
    pipe.takeReader();
    const auto failure = file.write("$two\r\n", isAbandoned);
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->hasReaderLeft);
}

TEST_F(OutputFileTest, leavesWholeSentencesToAReaderWhoIsGivenUp) {
    const Pipe pipe;
    const OutputFile file = open(pipe.path());
    std::string sentences;
    while (sentences.size() < 1 << 20) sentences += "$a sentence of some length,1,2,3*00\r\n";
    isAbandoned = true;
    EXPECT_EQ(file.write(sentences, isAbandoned), std::nullopt);
    std::string taken = pipe.read();
    EXPECT_GT(taken.size(), 4096U);
    EXPECT_LT(taken.size(), sentences.size());
    EXPECT_THAT(taken, EndsWith("*00\r\n"));
}

TEST_F(OutputFileTest, writesASentenceThatNoPipeTakesAtOnce) {
    const Pipe pipe;
    const std::string sentence = std::string(20'000, 'x') + "\r\n";
    EXPECT_EQ(open(pipe.path()).write(sentence, isAbandoned), std::nullopt);
    EXPECT_EQ(pipe.read(), sentence);
}

}  // namespace
}  // namespace tidewright::network
