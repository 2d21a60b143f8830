#include "network/OutputFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tidewright::network {
namespace {
using testing::EndsWith;
using testing::Optional;

struct OutputFileTest : testing::Test {
    std::filesystem::path folder;
    std::atomic<bool> isAbandoned = false;

    void SetUp() override {
        std::string name = (std::filesystem::temp_directory_path() / "tidewright.XXXXXX").string();
        ASSERT_NE(::mkdtemp(name.data()), nullptr);
        folder = name;
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

    std::string path() const { return folder / "log"; }

    static OutputFile open(const std::string& path) {
        return std::get<OutputFile>(OutputFile::open(path));
    }

    static std::string whyNot(const std::string& path) {
        return std::get<OutputFile::Failure>(OutputFile::open(path)).reason;
    }

    std::string content() const {
        std::ifstream file(path(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

/// The two ends of a pipe, of which the writing one can be opened by a path.
struct Pipe {
    std::array<int, 2> ends{};

    Pipe() { EXPECT_EQ(::pipe(ends.data()), 0); }
    ~Pipe() {
        closeReader();
        ::close(ends[1]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    std::string path() const { return "/dev/fd/" + std::to_string(ends[1]); }
    void closeReader() {
        if (ends[0] >= 0) ::close(std::exchange(ends[0], -1));
    }
    std::string read() const {
        std::string text(1 << 16, '\0');
        text.resize(static_cast<std::size_t>(
            std::max(::read(ends[0], text.data(), text.size()), ssize_t{0})));
        return text;
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
    std::ofstream(path()) << "what was there before\r\n";
    EXPECT_EQ(open(path()).write("$one\r\n$two\r\n", isAbandoned), std::nullopt);
    EXPECT_EQ(content(), "$one\r\n$two\r\n");
}

TEST_F(OutputFileTest, saysWhyItCannotBeOpened) {
    EXPECT_EQ(whyNot(folder), "c'est un dossier.");
    EXPECT_EQ(whyNot(folder / "none" / "log"), "son dossier n'existe pas.");
    std::ofstream(path()) << "a file";
    EXPECT_EQ(whyNot(path() + "/log"), "son dossier n'existe pas.");
}

TEST_F(OutputFileTest, endsWithAWholeSentenceWhereTheFileMayNotGrow) {
    const OutputFile file = open(path());
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
    pipe.closeReader();
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
