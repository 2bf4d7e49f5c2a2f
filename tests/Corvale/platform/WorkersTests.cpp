#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <fstream>
#include <future>
#include <optional>
#include <string>

#include "Corvale/platform/Workers.h"
#include "tests/support/ChildProcess.h"

namespace corvale {
namespace {

TEST(Workers, DoAllThatTheyAreGiven) {
    std::optional<Workers> workers(3);
    EXPECT_EQ(workers->count(), 3U);
    std::promise<void> done;
    std::atomic<int> left = 1000;
    for (int i = 0; i < 1000; ++i) {
        workers->start([&] {
            if (--left == 0) {
                done.set_value();
            }
        });
    }
    done.get_future().wait();
    workers.reset();
    EXPECT_EQ(left, 0);
}

// Nothing waits for threads that never came.
TEST(Workers, AreAsManyAsTheSystemGives) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "a sanitizer takes more address space than any limit leaves";
#endif
    constexpr std::size_t wanted = 500;
    const std::string told = ChildProcess::run([] {
        std::uint64_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        // Stacks of a few threads; those that are there already may be used again.
        const std::uint64_t used = pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
        const rlimit limit{used + (64U << 20U), RLIM_INFINITY};
        if (::setrlimit(RLIMIT_AS, &limit) != 0) {
            return std::string("no limit");
        }
        return std::to_string(Workers(wanted).count());
    });
    EXPECT_LT(std::stoul(told), wanted);
}

}  // namespace
}  // namespace corvale
