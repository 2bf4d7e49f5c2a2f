#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <limits>

#include "cli/FileReading.h"
#include "cli/FileSource.h"
#include "tests/support/RestlessFile.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::Cli {
namespace {

using TestSupport::ScratchFolder;

std::string failureOf(const std::string& path) {
    try {
        readFile(path);
    } catch (const FileFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

std::string text(const Bytes& bytes) { return std::string(bytes.view()); }

// Gives `content` in pieces of at most three bytes.
ReadPiece piecesOf(std::string content) {
    return [content = std::move(content), position = std::size_t{0}](char* target, std::size_t room) mutable {
        const std::size_t count = std::min({room, content.size() - position, std::size_t{3}});
        std::memcpy(target, content.data() + position, count);
        position += count;
        return count;
    };
}

std::string failureOf(std::uint64_t size, const ReadPiece& read) {
    try {
        readExactly("dir/x.csv", size, read);
    } catch (const FileFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

TEST(FileReading, GivesEveryByte) {
    const ScratchFolder folder;
    std::string all;
    for (int i = 0; i < 256 * 300; ++i) {
        all += static_cast<char>(i);
    }
    EXPECT_EQ(text(readFile(folder.write("all.bin", all))), all);
    EXPECT_EQ(readFile(folder.write("empty.csv", "")).size(), 0U);
}

TEST(FileReading, FollowsLinks) {
    const ScratchFolder folder;
    std::filesystem::create_symlink(folder.write("a.csv", "x"), folder.at("link.csv"));
    EXPECT_EQ(text(readFile(folder.at("link.csv"))), "x");
}

TEST(FileReading, RefusesWhatIsNoFile) {
    const ScratchFolder folder;
    EXPECT_EQ(failureOf(folder.at("no.csv")), "“" + folder.at("no.csv") + "” doesn’t exist.");
    EXPECT_EQ(failureOf(folder.write("a.csv", "x") + "/b.csv"), "“" + folder.at("a.csv") + "/b.csv” doesn’t exist.");
    EXPECT_EQ(failureOf(folder.path().string()), "“" + folder.path().string() + "” is a folder, not a file.");
    EXPECT_EQ(failureOf("/dev/null"), "“/dev/null” is a device, not a file.");
    EXPECT_EQ(failureOf(""), "“” doesn’t exist.");
}

TEST(FileReading, DoesNotWaitForAPipe) {
    const ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.at("pipe.csv").c_str(), 0600), 0);
    EXPECT_EQ(failureOf(folder.at("pipe.csv")),
              "“" + folder.at("pipe.csv") + "” is a pipe. Save what comes out of it to a file first.");
}

TEST(FileReading, RefusesASocket) {
    const ScratchFolder folder;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder.at("s");
    ASSERT_LT(path.size(), sizeof address.sun_path);
    path.copy(address.sun_path, path.size());
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(failureOf(path), "“" + path + "” is a socket, not a file.");
    ::close(descriptor);
}

// The system's own words, in the user's language.
std::string reason(int error) { return std::generic_category().message(error); }

TEST(FileReadingDeathTest, TellsWhyAFileCannotBeRead) {
    const ScratchFolder folder;
    const std::string path = folder.write("secret.csv", "x");
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    const auto isRefused = [&] {
        // Root may read everything, so it becomes nobody.
        const bool isSomebody = ::geteuid() != 0 || ::setuid(65534) == 0;
        return isSomebody && failureOf(path) == "“" + path + "” can’t be read: " + reason(EACCES) + ".";
    };
    EXPECT_EXIT(std::_Exit(isRefused() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(FileReading, AnErrorWhileReadingIsTold) {
    if (!std::filesystem::exists("/proc/self/mem")) {
        GTEST_SKIP() << "this system has no file that opens and cannot be read";
    }
    EXPECT_EQ(failureOf("/proc/self/mem"), "“/proc/self/mem” can’t be read: " + reason(EIO) + ".");
}

TEST(FileReading, PiecesAreJoined) {
    EXPECT_EQ(text(readExactly("x.csv", 10, piecesOf("0123456789"))), "0123456789");
    EXPECT_EQ(readExactly("x.csv", 0, piecesOf("")).size(), 0U);
}

TEST(FileReading, NoticesThatAFileShrank) {
    EXPECT_EQ(failureOf(10, piecesOf("012345")), "“dir/x.csv” changed while it was being read.");
    EXPECT_EQ(failureOf(1, piecesOf("")), "“dir/x.csv” changed while it was being read.");
}

TEST(FileReading, NoticesThatAFileGrew) {
    EXPECT_EQ(failureOf(5, piecesOf("012345")), "“dir/x.csv” changed while it was being read.");
    EXPECT_EQ(failureOf(0, piecesOf("0")), "“dir/x.csv” changed while it was being read.");
}

TEST(FileReading, NoticesThatAFileWasWrittenToInItsPlace) {
    const ScratchFolder folder;
    const std::string path = folder.write("x.csv", "0123456789");
    const FileSource source(path);
    EXPECT_FALSE(source.hasChanged());
    folder.write("x.csv", "abcdefghij");
    // Beyond what the system's clock tells apart.
    const timespec later[] = {{2'000'000'000, 0}, {2'000'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), later, 0), 0);
    EXPECT_TRUE(source.hasChanged());
}

TEST(FileReading, NeverMixesTwoStatesOfAFile) {
    constexpr std::size_t size = std::size_t{64} << 20U;
    const ScratchFolder folder;
    const std::string path = folder.at("restless.csv");
    const TestSupport::RestlessFile file(path, size);
    for (int tries = 0; tries < 5; ++tries) {
        try {
            const Bytes bytes = readFile(path);
            EXPECT_TRUE(TestSupport::RestlessFile::isOfOneMoment(bytes.view()));
        } catch (const FileFailure& failure) {
            EXPECT_EQ(failure.message(), "“" + path + "” changed while it was being read.");
        }
    }
}

TEST(FileReading, RefusesWhatNoMemoryHolds) {
    EXPECT_EQ(failureOf(std::numeric_limits<std::uint64_t>::max(), piecesOf("")),
              "“dir/x.csv” is too large for this computer’s memory.");
}

TEST(FileReading, RefusesASparseGiant) {
    const ScratchFolder folder;
    const std::string path = folder.write("giant.csv", "a,b\n");
    std::error_code error;
    std::filesystem::resize_file(path, std::uintmax_t{1} << 43U, error);
    if (error) {
        GTEST_SKIP() << "this file system holds no file of 8 TB: " << error.message();
    }
    EXPECT_EQ(failureOf(path), "“" + path + "” is too large for this computer’s memory.");
}

// The limit for a file that tells no length; the pieces are small, the room is not.
constexpr std::uint64_t megabyte = std::uint64_t{1} << 20U;

TEST(FileReading, ReadsToTheEndWhatTellsNoLength) {
    std::string all;
    for (int i = 0; i < 300'000; ++i) {
        all += static_cast<char>(i % 251);
    }
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 131072U, 300'000U}) {
        EXPECT_EQ(text(readToEnd("x.csv", megabyte, piecesOf(all.substr(0, size)))), all.substr(0, size));
    }
}

TEST(FileReading, RefusesWhatHasNoEnd) {
    std::size_t given = 0;
    const auto endless = [&](char* target, std::size_t room) {
        std::memset(target, 'x', room);
        given += room;
        return room;
    };
    try {
        readToEnd("dir/x.csv", megabyte, endless);
        ADD_FAILURE() << "it came to an end";
    } catch (const FileFailure& failure) {
        EXPECT_STREQ(failure.what(), "“dir/x.csv” is too large for this computer’s memory.");
    }
    EXPECT_LE(given, megabyte);
}

TEST(FileReading, ReadsFilesThatTheSystemMakesUp) {
    const std::string path = "/proc/cpuinfo";
    std::error_code error;
    if (std::filesystem::file_size(path, error) != 0 || error) {
        GTEST_SKIP() << "this system has no file that tells no length";
    }
    EXPECT_NE(readFile(path).size(), 0U);
    EXPECT_EQ(text(readFile("/proc/version")).rfind("Linux version ", 0), 0U);
}

TEST(FileReading, ShowsNamesThatAreNoUtf8) {
    EXPECT_EQ(failureOf("no\xFF.csv"), "“no\uFFFD.csv” doesn’t exist.");
    EXPECT_EQ(fileNameOf("/dir/no\xFF.csv"), "no\uFFFD.csv");
    EXPECT_EQ(fileNameOf("b.csv"), "b.csv");
}

}  // namespace
}  // namespace corvale::Cli
