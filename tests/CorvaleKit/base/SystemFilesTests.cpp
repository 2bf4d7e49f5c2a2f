#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "CorvaleKit/base/SystemFiles.h"
#include "tests/support/ScratchFolder.h"

namespace corvale {
namespace {

TEST(SystemFiles, TellsWhenAFileWasWrittenLast) {
    const TestSupport::ScratchFolder folder;
    const std::string path = folder.write("list.csv", "ID\n1\n");
    const int file = ::open(path.c_str(), O_RDONLY);
    const auto first = SystemFiles::lastWrite(file);
    ASSERT_TRUE(first);
    EXPECT_EQ(SystemFiles::lastWrite(file), first);
    const timespec later[2] = {{}, {first->first, first->second == 7 ? 8 : 7}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), later, 0), 0);
    EXPECT_EQ(SystemFiles::lastWrite(file), std::pair(first->first, std::int64_t{later[1].tv_nsec}));
    ::close(file);
    EXPECT_EQ(SystemFiles::lastWrite(file), std::nullopt);
}

// Writes more than may be, and ends well when that was told as an error.
[[noreturn]] void writeBeyondLimit(const std::string& path) {
    const rlimit limit{4, 4};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT, 0600);
    const bool isCut = ::write(file, "12345678", 8) == 4;
    std::_Exit(isCut && ::write(file, "5678", 4) == -1 && errno == EFBIG ? 0 : 1);
}

TEST(SystemFilesDeathTest, OutlivesALimitOnFileSizes) {
    const TestSupport::ScratchFolder folder;
    EXPECT_EXIT(
        {
            SystemFiles::outliveSizeLimit();
            writeBeyondLimit(folder.at("list.csv"));
        },
        testing::ExitedWithCode(0),
        "");
    EXPECT_EXIT(writeBeyondLimit(folder.at("list.csv")), testing::KilledBySignal(SIGXFSZ), "");
}

}  // namespace
}  // namespace corvale
