#include <gtest/gtest.h>

#include "Corvale/model/PendingLoads.h"

namespace corvale {
namespace {

using Reread = PendingLoads::Reread;

LoadedFile file(const std::string& name) {
    LoadedFile file;
    file.name = name;
    return file;
}

class PendingLoadsTest : public testing::Test {
protected:
    // "before=a.csv after=b.csv"
    std::string arrived() {
        std::string all;
        for (const auto& one : m_loads.takeArrived()) {
            all += (all.empty() ? "" : " ") + std::string(one.side == Side::before ? "before=" : "after=") +
                   one.file.name + (one.keepsMatch ? "!" : "");
        }
        return all;
    }
    std::string unwanted() {
        std::string all;
        for (const LoadedFile& one : m_loads.takeUnwanted()) {
            all += (all.empty() ? "" : " ") + one.name;
        }
        return all;
    }
    std::pair<PendingLoads::Id, PendingLoads::Id> startBothTogether() {
        const auto ids = m_loads.startTogether({{Side::before, {0, {}, true}}, {Side::after, {0, {}, true}}});
        return {ids[0].second, ids[1].second};
    }

    PendingLoads m_loads;
};

TEST_F(PendingLoadsTest, AReadIsPendingUntilItsFileIsTaken) {
    EXPECT_TRUE(m_loads.empty());
    const auto id = m_loads.start(Side::after, {});
    EXPECT_FALSE(m_loads.empty());
    EXPECT_TRUE(m_loads.isPending(Side::after));
    EXPECT_FALSE(m_loads.isPending(Side::before));
    EXPECT_TRUE(m_loads.isCurrent(id));
    EXPECT_EQ(arrived(), "");
    m_loads.arrive(id, file("a.csv"));
    EXPECT_TRUE(m_loads.isPending(Side::after));
    EXPECT_EQ(arrived(), "after=a.csv");
    EXPECT_TRUE(m_loads.empty());
    EXPECT_FALSE(m_loads.isCurrent(id));
}

TEST_F(PendingLoadsTest, ANewerReadOfASideMakesTheOlderOneUnwanted) {
    const auto older = m_loads.start(Side::before, {});
    const auto newer = m_loads.start(Side::before, {});
    EXPECT_FALSE(m_loads.isCurrent(older));
    EXPECT_TRUE(m_loads.isCurrent(newer));
}

TEST_F(PendingLoadsTest, ReadsOfTheirOwnDoNotWaitForEachOther) {
    const auto before = m_loads.start(Side::before, {});
    const auto after = m_loads.start(Side::after, {});
    m_loads.arrive(after, file("b.csv"));
    EXPECT_EQ(arrived(), "after=b.csv");
    m_loads.fail(before);
    EXPECT_TRUE(m_loads.empty());
}

TEST_F(PendingLoadsTest, ReadsStartedTogetherArriveTogether) {
    const auto [before, after] = startBothTogether();
    m_loads.arrive(after, file("b.csv"));
    EXPECT_EQ(arrived(), "");
    EXPECT_TRUE(m_loads.isPending(Side::after));
    m_loads.arrive(before, file("a.csv"));
    EXPECT_EQ(arrived(), "before=a.csv! after=b.csv!");
}

TEST_F(PendingLoadsTest, ReadsStartedTogetherFailTogether) {
    const auto [before, after] = startBothTogether();
    m_loads.arrive(after, file("b.csv"));
    m_loads.fail(before);
    EXPECT_TRUE(m_loads.empty());
    EXPECT_FALSE(m_loads.isCurrent(after));
    EXPECT_EQ(arrived(), "");
    EXPECT_EQ(unwanted(), "b.csv");
    EXPECT_EQ(unwanted(), "");
}

TEST_F(PendingLoadsTest, AFileWaitsNoLongerForAReadThatWasReplacedOrDropped) {
    for (const bool isReplaced : {true, false}) {
        const auto [before, after] = startBothTogether();
        m_loads.arrive(before, file("a.csv"));
        EXPECT_EQ(arrived(), "");
        if (isReplaced) {
            m_loads.start(Side::after, {});
        } else {
            m_loads.drop(Side::after);
        }
        EXPECT_FALSE(m_loads.isCurrent(after));
        EXPECT_EQ(arrived(), "before=a.csv!");
        m_loads.drop(Side::after);
    }
}

TEST_F(PendingLoadsTest, AFileThatWaitsIsUnwantedOnceItsSideIsDroppedOrReplaced) {
    const auto first = startBothTogether();
    m_loads.arrive(first.first, file("a.csv"));
    m_loads.drop(Side::before);
    EXPECT_EQ(unwanted(), "a.csv");
    const auto second = startBothTogether();
    m_loads.arrive(second.first, file("b.csv"));
    m_loads.start(Side::before, {});
    EXPECT_EQ(unwanted(), "b.csv");
}

TEST_F(PendingLoadsTest, SwapGivesEachReadToTheOtherSide) {
    const auto id = m_loads.start(Side::before, {});
    m_loads.swap();
    EXPECT_TRUE(m_loads.isPending(Side::after));
    EXPECT_FALSE(m_loads.isPending(Side::before));
    m_loads.arrive(id, file("a.csv"));
    EXPECT_EQ(arrived(), "after=a.csv");
}

TEST_F(PendingLoadsTest, OtherChoicesOfAFileTakeThePlaceOfItsRead) {
    const auto [before, after] = startBothTogether();
    const auto again = m_loads.restart(Side::before, {2, 5, true});
    EXPECT_FALSE(m_loads.isCurrent(before));
    EXPECT_EQ(m_loads.reread(Side::before), (Reread{2, 5, true}));
    EXPECT_EQ(m_loads.reread(Side::after), (Reread{0, std::nullopt, true}));
    m_loads.arrive(again, file("a.csv"));
    EXPECT_EQ(arrived(), "");
    m_loads.arrive(after, file("b.csv"));
    EXPECT_EQ(arrived(), "before=a.csv after=b.csv!");
}

TEST_F(PendingLoadsTest, AnotherFileIsNotReadAnew) {
    EXPECT_EQ(m_loads.reread(Side::before), std::nullopt);
    m_loads.start(Side::before, {});
    EXPECT_EQ(m_loads.reread(Side::before), std::nullopt);
}

TEST_F(PendingLoadsTest, AMatchChosenMeanwhileIsKeptByWhatIsUnderWayOnly) {
    const auto older = m_loads.start(Side::before, {});
    m_loads.keepMatch();
    const auto newer = m_loads.start(Side::after, {});
    m_loads.arrive(older, file("a.csv"));
    m_loads.arrive(newer, file("b.csv"));
    EXPECT_EQ(arrived(), "before=a.csv! after=b.csv");
}

}  // namespace
}  // namespace corvale
