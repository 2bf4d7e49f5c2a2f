#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <optional>
#include <string>

#include "Corvale/platform/Workers.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/MemoryLimit.h"

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
        // Stacks of a few threads; those that are there already may be used again.
        MemoryLimit::allowFurther(64U << 20U);
        return std::to_string(Workers(wanted).count());
    });
    ASSERT_TRUE(!told.empty() && told.find_first_not_of("0123456789") == std::string::npos) << told;
    EXPECT_GE(std::stoul(told), 1U);
    EXPECT_LT(std::stoul(told), wanted);
}

}  // namespace
}  // namespace corvale
