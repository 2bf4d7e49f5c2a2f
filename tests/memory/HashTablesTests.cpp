#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "CorvaleKit/base/HashTables.h"
#include "tests/memory/FailingAllocations.h"

namespace corvale {
namespace {

using TestSupport::FailingAllocations;

TEST(HashTables, HoldWhatWasPutIn) {
    HashMap<int, int> map;
    HashSet<std::string> set;
    for (int i = 0; i < 5000; ++i) {
        EXPECT_TRUE(map.try_emplace(i, 2 * i).second);
        EXPECT_TRUE(set.insert(std::to_string(i)).second);
        EXPECT_FALSE(set.insert(std::to_string(i / 2)).second);
    }
    EXPECT_EQ(map.size(), 5000U);
    EXPECT_EQ(set.size(), 5000U);
    for (int i = 0; i < 5000; ++i) {
        ASSERT_EQ(map.find(i)->second, 2 * i);
        ASSERT_TRUE(set.contains(std::to_string(i)));
    }
    EXPECT_EQ(map.find(5000), map.end());
    map.insert_or_assign(7, 1);
    map[8] = 2;
    EXPECT_EQ(map[7] + map[8] + map[5000], 3);
    EXPECT_EQ(map.size(), 5001U);
}

TEST(HashTables, AreEmptyAfterClearing) {
    HashMap<int, int> map;
    for (const int size : {3, 5000}) {
        map.reserve(10);
        for (int i = 0; i < size; ++i) {
            map[i] = i;
        }
        map.clear();
        EXPECT_TRUE(map.empty());
        EXPECT_FALSE(map.contains(0));
    }
}

// Made larger at every size at which they grow, and refused it there: they stay what they were, and go on later.
void expectWholeWhereItCannotGrow(const std::function<void(HashMap<int, int>&, int)>& add) {
    HashMap<int, int> map;
    int failures = 0;
    for (int i = 0; i < 5000; ++i) {
        try {
            const FailingAllocations failing(1, FailingAllocations::Mode::fromThenOn);
            add(map, i);
        } catch (const std::bad_alloc&) {
            ++failures;
            ASSERT_EQ(map.size(), static_cast<std::size_t>(i));
            for (int known = 0; known < i; ++known) {
                ASSERT_EQ(map.find(known)->second, known);
            }
            ASSERT_FALSE(map.contains(i));
            add(map, i);
        }
    }
    EXPECT_GT(failures, 10);
    EXPECT_EQ(map.size(), 5000U);
}

TEST(HashTables, StayWholeWhereTheyCannotGrow) {
    using Map = HashMap<int, int>;
    expectWholeWhereItCannotGrow([](Map& map, int i) { map.try_emplace(i, i); });
    expectWholeWhereItCannotGrow([](Map& map, int i) { map.insert(std::pair(i, i)); });
    expectWholeWhereItCannotGrow([](Map& map, int i) { map.insert_or_assign(i, i); });
    expectWholeWhereItCannotGrow([](Map& map, int i) { map[i] = i; });
    expectWholeWhereItCannotGrow(
        [](Map& map, int i) { map.lazy_emplace(i, [i](const auto& construct) { construct(i, i); }); });
}

TEST(HashTables, StayWholeWhereRoomIsRefused) {
    HashSet<int> set;
    for (const int size : {0, 1, 100}) {
        set.reserve(static_cast<std::size_t>(size));
        for (int i = 0; i < size; ++i) {
            set.insert(i);
        }
        const FailingAllocations failing(1, FailingAllocations::Mode::fromThenOn);
        EXPECT_THROW(set.reserve(100'000), std::bad_alloc);
        EXPECT_EQ(set.size(), static_cast<std::size_t>(size));
        EXPECT_EQ(set.contains(0), size > 0);
    }
}

}  // namespace
}  // namespace corvale
