#include <gtest/gtest.h>

#include <set>
#include <string>

#include "Corvale/model/AppModel.h"
#include "tests/Corvale/model/ScriptedPlatform.h"
#include "tests/memory/FailingAllocations.h"

namespace corvale {
namespace {

using TestSupport::FailingAllocations;
using TestSupport::ScriptedPlatform;

// A model whose background work is refused memory at one allocation; its main thread is not.
class OutOfMemoryModel : public testing::Test {
protected:
    OutOfMemoryModel() {
        m_platform.files = {{"a.csv", "ID,Name\n1,Pen\n2,Cup\n3,Hat\n"}, {"b.csv", "ID,Name\n1,Pen\n2,Cap\n4,Ink\n"}};
    }

    void openPair() { m_model.open({ScriptedPlatform::url("a.csv"), ScriptedPlatform::url("b.csv")}, Side::before); }

    // Runs what waits, with the allocation at that place in each piece of work refused. False when none had so many.
    bool settleFailing(std::int64_t place) {
        bool hasStruck = false;
        while (m_platform.waiting() > 0) {
            {
                const FailingAllocations failing(place, FailingAllocations::Mode::once);
                m_platform.work();
                hasStruck = hasStruck || failing.haveStruck();
            }
            m_platform.deliver();
        }
        m_platform.settle();
        return hasStruck;
    }

    void expectQuiet() {
        EXPECT_TRUE(m_model.loading().empty());
        EXPECT_FALSE(m_model.progress());
        EXPECT_FALSE(m_model.exporting());
    }

    ScriptedPlatform m_platform;
    AppModel m_model{m_platform};
};

TEST_F(OutOfMemoryModel, SaysSoOnceAndLivesOn) {
    std::set<std::string> told;
    bool hasStruck = true;
    for (std::int64_t place = 1; hasStruck; ++place) {
        ASSERT_LT(place, 100'000);
        m_model.close(Side::before);
        m_model.close(Side::after);
        openPair();
        hasStruck = settleFailing(place);
        expectQuiet();
        if (m_model.problem()) {
            told.insert(m_model.problem()->toStdString());
            m_model.dismissProblem();
        }
        openPair();
        m_platform.settle();
        ASSERT_TRUE(m_model.result()) << "after allocation " << place << " was refused";
        EXPECT_EQ(m_model.result()->summary.changed, 1);
        EXPECT_FALSE(m_model.problem());
    }
    EXPECT_EQ(told,
              (std::set<std::string>{"There isn’t enough memory to open this file.",
                                     "There isn’t enough memory to compare these files."}));
}

TEST_F(OutOfMemoryModel, SaysThatAReportCouldNotBeSaved) {
    openPair();
    m_platform.settle();
    bool hasStruck = true;
    for (std::int64_t place = 1; hasStruck; ++place) {
        ASSERT_LT(place, 100'000);
        m_platform.files.erase("r.xlsx");
        m_model.exportReport(ReportKind::excel);
        m_platform.chooseTarget("r.xlsx");
        hasStruck = settleFailing(place);
        expectQuiet();
        if (m_model.problem()) {
            EXPECT_EQ(m_model.problem()->toStdString(), "The report couldn’t be saved: There isn’t enough memory.");
            m_model.dismissProblem();
        } else {
            EXPECT_TRUE(m_platform.files.contains("r.xlsx"));
        }
    }
}

}  // namespace
}  // namespace corvale
