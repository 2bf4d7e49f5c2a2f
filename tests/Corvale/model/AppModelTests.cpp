#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <thread>

#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;
using TestSupport::ScriptedPlatform;

class AppModelTest : public ModelTest {};

TEST_F(AppModelTest, BeginsWithNothing) {
    EXPECT_FALSE(m_model.before());
    EXPECT_FALSE(m_model.after());
    EXPECT_TRUE(m_model.loading().empty());
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
    EXPECT_EQ(m_model.suggestedKey(), std::nullopt);
    EXPECT_EQ(m_model.result(), nullptr);
    EXPECT_EQ(m_model.progress(), std::nullopt);
    EXPECT_EQ(m_model.filter(), DiffFilter());
    EXPECT_TRUE(m_model.visible().empty());
    EXPECT_EQ(m_model.selectedRow(), std::nullopt);
    EXPECT_TRUE(m_model.showInspector());
    EXPECT_TRUE(m_model.inspectorWanted());
    EXPECT_FALSE(m_model.focusSearch());
    EXPECT_EQ(m_model.problem(), std::nullopt);
    EXPECT_FALSE(m_model.exporting());
    EXPECT_EQ(m_model.settings(), AppSettings());
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    EXPECT_EQ(m_model.compareGeneration(), 0U);
    EXPECT_EQ(m_model.filterGeneration(), 0U);
    EXPECT_EQ(m_platform.waiting(), 0U);
}

TEST_F(AppModelTest, HasNothingToChooseAmongWithoutFiles) {
    EXPECT_TRUE(m_model.sharedColumns().empty());
    EXPECT_TRUE(m_model.ignorableColumns().empty());
    EXPECT_TRUE(m_model.headerRowChoices(Side::before).empty());
    load("october.csv", Side::before);
    m_platform.settle();
    EXPECT_TRUE(m_model.sharedColumns().empty());
    EXPECT_TRUE(m_model.ignorableColumns().empty());
    EXPECT_EQ(m_model.headerRowChoices(Side::before).size(), 4U);
    EXPECT_TRUE(m_model.headerRowChoices(Side::after).empty());
}

TEST_F(AppModelTest, TwoFilesAreComparedByTheSuggestedKey) {
    openPair();
    EXPECT_EQ(compared(), "october.csv > november.csv");
    EXPECT_EQ(m_model.suggestedKey(), "ID");
    EXPECT_EQ(m_model.match(), MatchChoice::key("ID"));
    EXPECT_EQ(counts(), "+1 -1 ~1 =1");
    EXPECT_EQ(listed(), "2 3 4");
    EXPECT_EQ(m_model.progress(), std::nullopt);
    EXPECT_EQ(loading(), "");
    EXPECT_EQ(m_model.sharedColumns(), (std::vector<std::string>{"ID", "Name", "Price"}));
    EXPECT_EQ(m_model.ignorableColumns(), (std::vector<std::string>{"ID", "Name", "Price"}));
}

using AppModelDeathTest = AppModelTest;

TEST_F(AppModelDeathTest, EveryOperationEndsTheProcessOnAnotherThread) {
    const std::vector<std::pair<const char*, std::function<void(AppModel&)>>> operations = {
        {"choose", [](AppModel& m) { m.choose(Side::before); }},
        {"open", [](AppModel& m) { m.open({}, Side::before); }},
        {"load", [](AppModel& m) { m.load(ScriptedPlatform::url("october.csv"), Side::before); }},
        {"setSheet", [](AppModel& m) { m.setSheet(0, Side::before); }},
        {"setHeaderRow", [](AppModel& m) { m.setHeaderRow(1, Side::before); }},
        {"close", [](AppModel& m) { m.close(Side::before); }},
        {"swap", [](AppModel& m) { m.swap(); }},
        {"openSamples", [](AppModel& m) { m.openSamples(); }},
        {"setMatch", [](AppModel& m) { m.setMatch(MatchChoice::rowOrder()); }},
        {"compare", [](AppModel& m) { m.compare(); }},
        {"compareAgain", [](AppModel& m) { m.compareAgain(); }},
        {"cancel", [](AppModel& m) { m.cancel(); }},
        {"setFilter", [](AppModel& m) { m.setFilter({}); }},
        {"select", [](AppModel& m) { m.select(std::nullopt); }},
        {"selectNext", [](AppModel& m) { m.selectNext(); }},
        {"selectPrevious", [](AppModel& m) { m.selectPrevious(); }},
        {"toggleInspector", [](AppModel& m) { m.toggleInspector(); }},
        {"setFocusSearch", [](AppModel& m) { m.setFocusSearch(false); }},
        {"exportReport", [](AppModel& m) { m.exportReport(ReportKind::html); }},
        {"setSettings", [](AppModel& m) { m.setSettings({}); }},
        {"dismissProblem", [](AppModel& m) { m.dismissProblem(); }},
    };
    for (const auto& [name, operation] : operations) {
        EXPECT_DEATH(std::thread([this, &call = operation] { call(m_model); }).join(),
                     "corvale: AppModel is used on the main thread only")
            << name;
    }
}

TEST_F(AppModelTest, ASignalComesOnceAnOperationForEachFieldThatChanged) {
    load("october.csv", Side::before);
    EXPECT_EQ(m_watch.take(), "loading");
    step();
    EXPECT_EQ(m_watch.take(), "before loading");
    load("november.csv", Side::after);
    step();
    EXPECT_EQ(m_watch.take(), "after loading loading");
    step();
    EXPECT_EQ(m_watch.take(), "compareFlag compareGeneration match progress suggestedKey");
    m_platform.work();
    EXPECT_EQ(m_watch.take(), "");
    m_platform.deliver();
    const std::string finished = m_watch.take();
    EXPECT_NE(finished.find("compareFlag filterGeneration progress"), std::string::npos) << finished;
    EXPECT_NE(finished.find("result visible"), std::string::npos) << finished;
    m_model.setMatch(MatchChoice::key("ID"));
    EXPECT_EQ(m_watch.take(), "compareFlag compareGeneration progress");
    m_model.setMatch(MatchChoice::key("Name"));
    EXPECT_EQ(m_watch.take(), "compareFlag compareGeneration match");
}

TEST_F(AppModelTest, OperationsThatChangeNothingAreSilent) {
    openPair();
    m_model.select(0);
    m_model.setFocusSearch(true);
    m_watch.take();
    m_model.select(0);
    m_model.setFocusSearch(true);
    m_model.setFilter(m_model.filter());
    m_model.setSettings(m_model.settings());
    m_model.dismissProblem();
    m_model.cancel();
    m_model.setSheet(0, Side::before);
    m_model.setSheet(7, Side::before);
    m_model.setSheet(-1, Side::before);
    m_model.setHeaderRow(std::nullopt, Side::before);
    m_model.open({}, Side::before);
    EXPECT_EQ(m_watch.take(), "");
    EXPECT_EQ(m_platform.waiting(), 0U);
}

TEST_F(AppModelTest, OperationsOnAnEmptyModelDoNothing) {
    m_model.swap();
    m_model.compare();
    m_model.compareAgain();
    m_model.close(Side::before);
    m_model.cancel();
    m_model.setSheet(0, Side::before);
    m_model.setHeaderRow(2, Side::after);
    m_model.selectNext();
    m_model.selectPrevious();
    m_model.select(0);
    m_model.exportReport(ReportKind::excel);
    EXPECT_EQ(m_watch.take(), "");
    EXPECT_EQ(m_platform.waiting(), 0U);
    EXPECT_TRUE(m_platform.savePanels.empty());
}

TEST_F(AppModelTest, AReceiverMayBeginAnotherOperation) {
    openPair();
    const QObject receiver;
    QObject::connect(&m_model, &AppModel::resultChanged, &receiver, [this] {
        if (!m_model.selectedRow()) {
            m_model.select(0);
        }
    });
    // A search that finds nothing, asked for while the new result is still being announced.
    QObject::connect(&m_model, &AppModel::selectedRowChanged, &receiver, [this] {
        m_model.setFilter({DiffFilter::Show::all, std::nullopt, "nowhere"});
    });
    load("december.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > december.csv");
    EXPECT_EQ(m_model.selectedRow(), 0);
    EXPECT_EQ(listed(), "");
}

TEST_F(AppModelTest, AReceiverMayStartTheNextComparisonWhenAResultComes) {
    openPair();
    const QObject receiver;
    int results = 0;
    QObject::connect(&m_model, &AppModel::resultChanged, &receiver, [this, &results] {
        if (++results == 1) {
            m_model.setMatch(MatchChoice::key("Name"));
        }
    });
    m_model.compare();
    m_platform.settle();
    EXPECT_EQ(results, 2);
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"Name"}));
}

TEST_F(AppModelTest, AnOldResultIsDestroyedInTheBackground) {
    openPair();
    const std::weak_ptr<const DiffResult> old = m_model.result();
    m_model.compare();
    step();
    EXPECT_FALSE(old.expired());
    m_platform.work();
    EXPECT_TRUE(old.expired());
}

TEST_F(AppModelTest, AnOldFileIsDestroyedInTheBackground) {
    load("october.csv", Side::before);
    m_platform.settle();
    const std::weak_ptr<const Bytes> old = m_model.before()->data;
    m_model.close(Side::before);
    EXPECT_FALSE(old.expired());
    m_platform.work();
    EXPECT_TRUE(old.expired());
}

TEST_F(AppModelTest, AnUnwantedResultIsDestroyedInTheBackground) {
    openPair();
    m_model.compare();
    m_platform.work();
    m_model.cancel();
    m_platform.deliver();
    EXPECT_EQ(m_platform.waiting(), 1U);
}

TEST_F(AppModelTest, AnOldResultLivesUntilEveryReceiverWasTold) {
    openPair();
    const std::weak_ptr<const DiffResult> old = m_model.result();
    const QObject receiver;
    // The first one begins an operation, the second one still has to let go of what it shows.
    QObject::connect(&m_model, &AppModel::resultChanged, &receiver, [this] { m_model.setFocusSearch(true); });
    std::size_t waiting = 99;
    QObject::connect(
        &m_model, &AppModel::resultChanged, &receiver, [this, &waiting] { waiting = m_platform.waiting(); });
    m_model.compare();
    step();
    EXPECT_EQ(waiting, 0U);
    EXPECT_EQ(m_platform.waiting(), 1U);
    EXPECT_FALSE(old.expired());
}

TEST(AppModelLifetimeTest, NothingIsDeliveredToAModelThatIsGone) {
    // Gone before any work ran, before its outcome was delivered, and at every step between.
    for (std::size_t steps = 0; steps < 5; ++steps) {
        for (const bool worked : {false, true}) {
            ScriptedPlatform platform;
            platform.files = {{"a.csv", "ID,P\n1,2\n2,2\n"}, {"b.csv", "ID,P\n1,3\n2,2\n"}};
            auto model = std::make_unique<AppModel>(platform);
            model->open({ScriptedPlatform::url("a.csv"), ScriptedPlatform::url("b.csv")}, Side::before);
            for (std::size_t i = 0; i < steps && platform.waiting() > 0; ++i) {
                platform.work();
                platform.deliver();
            }
            if (worked && platform.waiting() > 0) {
                platform.work();
            }
            const int reads = platform.reads;
            int signals = 0;
            QObject::connect(model.get(), &AppModel::loadingChanged, [&signals] { ++signals; });
            QObject::connect(model.get(), &AppModel::resultChanged, [&signals] { ++signals; });
            model.reset();
            platform.settle();
            EXPECT_EQ(signals, 0);
            EXPECT_EQ(platform.reads, reads);
        }
    }
}

TEST(AppModelLifetimeTest, ARunningComparisonEndsEarlyWhenItsModelGoes) {
    ScriptedPlatform platform;
    platform.files = {{"a.csv", "ID,P\n1,2\n2,2\n"}, {"b.csv", "ID,P\n1,3\n2,2\n"}};
    auto model = std::make_unique<AppModel>(platform);
    model->open({ScriptedPlatform::url("a.csv"), ScriptedPlatform::url("b.csv")}, Side::before);
    while (!model->compareFlag()) {
        platform.work();
        platform.deliver();
    }
    const auto flag = model->compareFlag();
    model.reset();
    EXPECT_TRUE(flag->isCancelled());
    platform.settle();
}

TEST(AppModelLifetimeTest, APanelAnsweredAfterTheModelIsGoneDoesNothing) {
    ScriptedPlatform platform;
    platform.files = {{"a.csv", "ID,P\n1,2\n2,2\n"}, {"b.csv", "ID,P\n1,3\n2,2\n"}};
    auto model = std::make_unique<AppModel>(platform);
    model->open({ScriptedPlatform::url("a.csv"), ScriptedPlatform::url("b.csv")}, Side::before);
    platform.settle();
    model->choose(Side::before);
    model->exportReport(ReportKind::html);
    model.reset();
    platform.chooseFiles({"a.csv", "b.csv"});
    platform.chooseTarget("report.html");
    EXPECT_EQ(platform.waiting(), 0U);
    EXPECT_EQ(platform.files.count("report.html"), 0U);
}

TEST(AppModelLifetimeTest, AReportUnderWayIsWrittenThoughItsModelGoes) {
    ScriptedPlatform platform;
    platform.files = {{"a.csv", "ID,P\n1,2\n2,2\n"}, {"b.csv", "ID,P\n1,3\n2,2\n"}};
    auto model = std::make_unique<AppModel>(platform);
    model->open({ScriptedPlatform::url("a.csv"), ScriptedPlatform::url("b.csv")}, Side::before);
    platform.settle();
    model->exportReport(ReportKind::html);
    platform.chooseTarget("report.html");
    model.reset();
    platform.settle();
    EXPECT_EQ(platform.files["report.html"].substr(0, 15), "<!doctype html>");
}

}  // namespace
}  // namespace corvale
