#include <gtest/gtest.h>

#include "tests/Corvale/model/ModelTest.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/SheetXml.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;
using TestSupport::ScriptedPlatform;

class AppModelExportTest : public ModelTest {
protected:
    AppModelExportTest() { openPair(); }

    std::string exported(ReportKind kind, const std::string& name) {
        m_platform.files.erase(name);
        m_model.exportReport(kind);
        m_platform.chooseTarget(name);
        m_platform.settle();
        return m_platform.files[name];
    }

    // The first cells of the rows of changes.
    std::vector<std::string> statuses() {
        std::vector<std::string> all;
        for (const std::string& row : SheetXml::rows(SheetXml::sheet(exported(ReportKind::excel, "r.xlsx"), 2))) {
            all.push_back(row.substr(row.find('=') + 1, row.find(" | ") - row.find('=') - 1));
        }
        return all;
    }
};

TEST_F(AppModelExportTest, WithoutAResultNothingIsAsked) {
    m_model.close(Side::before);
    m_model.exportReport(ReportKind::excel);
    m_model.exportReport(ReportKind::html);
    EXPECT_TRUE(m_platform.savePanels.empty());
    EXPECT_FALSE(m_model.exporting());
}

TEST_F(AppModelExportTest, ThePanelProposesTheNewerFilesName) {
    m_platform.files["prices.november.csv"] = m_platform.files["november.csv"];
    openPair("october.csv", "prices.november.csv");
    m_model.exportReport(ReportKind::excel);
    m_platform.chooseTarget("");
    m_model.exportReport(ReportKind::html);
    ASSERT_EQ(m_platform.savePanels.size(), 2U);
    EXPECT_EQ(m_platform.savePanels[0].defaultName.toStdString(), "prices.november changes.xlsx");
    EXPECT_EQ(m_platform.savePanels[0].extension.toStdString(), "xlsx");
    EXPECT_EQ(m_platform.savePanels[1].defaultName.toStdString(), "prices.november changes.html");
    EXPECT_EQ(m_platform.savePanels[1].extension.toStdString(), "html");
}

TEST_F(AppModelExportTest, WhileOnePlaceIsAskedForNoOtherIs) {
    m_model.exportReport(ReportKind::excel);
    m_model.exportReport(ReportKind::html);
    EXPECT_EQ(m_platform.savePanels.size(), 1U);
    m_platform.chooseTarget("report.xlsx");
    m_platform.settle();
    m_model.exportReport(ReportKind::html);
    EXPECT_EQ(m_platform.savePanels.size(), 2U);
}

TEST_F(AppModelExportTest, AReportIsMadeAndWrittenInTheBackground) {
    m_model.exportReport(ReportKind::html);
    EXPECT_FALSE(m_model.exporting());
    m_platform.chooseTarget("report.html");
    EXPECT_TRUE(m_model.exporting());
    EXPECT_EQ(m_watch.take(), "exporting");
    EXPECT_EQ(m_platform.files.count("report.html"), 0U);
    m_platform.work();
    EXPECT_EQ(m_platform.files.count("report.html"), 1U);
    EXPECT_TRUE(m_model.exporting());
    m_platform.deliver();
    EXPECT_FALSE(m_model.exporting());
    EXPECT_EQ(m_watch.take(), "exporting");
    EXPECT_EQ(m_model.problem(), std::nullopt);
}

TEST_F(AppModelExportTest, APanelThatIsDismissedWritesNothing) {
    m_model.exportReport(ReportKind::excel);
    m_platform.chooseTarget("");
    EXPECT_FALSE(m_model.exporting());
    EXPECT_EQ(m_platform.waiting(), 1U);
    m_platform.settle();
    EXPECT_EQ(m_platform.files.size(), 3U);
}

TEST_F(AppModelExportTest, BothKindsAreWritten) {
    EXPECT_EQ(exported(ReportKind::html, "r.html").substr(0, 31), "<!doctype html>\n<html lang=\"en\"");
    const std::string workbook = SheetXml::part(exported(ReportKind::excel, "r.xlsx"), "xl/workbook.xml");
    EXPECT_NE(workbook.find("name=\"Cell changes\""), std::string::npos);
}

TEST_F(AppModelExportTest, SpanishIsWrittenForSpanishAndEnglishForTheRest) {
    const std::vector<std::pair<std::string, bool>> languages = {
        {"es", true}, {"en", false}, {"fr", false}, {"", false}, {"est", false}};
    for (const auto& [language, isSpanish] : languages) {
        m_platform.languageCode = language;
        const std::string page = exported(ReportKind::html, "r.html");
        EXPECT_EQ(page.find("<html lang=\"es\"") != std::string::npos, isSpanish) << language;
        EXPECT_EQ(page.find("Filas añadidas") != std::string::npos, isSpanish) << language;
        EXPECT_EQ(page.find("Rows added") != std::string::npos, !isSpanish) << language;
        const std::string workbook = SheetXml::part(exported(ReportKind::excel, "r.xlsx"), "xl/workbook.xml");
        EXPECT_EQ(workbook.find("name=\"Resumen\"") != std::string::npos, isSpanish) << language;
    }
}

TEST_F(AppModelExportTest, UnchangedRowsAreListedOnlyWhenWanted) {
    EXPECT_EQ(statuses(), (std::vector<std::string>{"Status", "Changed", "Removed", "Added"}));
    AppSettings settings = m_model.settings();
    settings.includeUnchangedInReports = true;
    m_model.setSettings(settings);
    EXPECT_EQ(statuses(), (std::vector<std::string>{"Status", "Unchanged", "Changed", "Removed", "Added"}));
}

TEST_F(AppModelExportTest, AFailureSaysWhyAndKeepsTheResult) {
    const auto result = m_model.result();
    m_platform.writeFailure = "You don’t have permission to save there.";
    for (const ReportKind kind : {ReportKind::excel, ReportKind::html}) {
        exported(kind, "report");
        EXPECT_EQ(problem(), "The report couldn’t be saved: You don’t have permission to save there.");
        EXPECT_FALSE(m_model.exporting());
        EXPECT_EQ(m_model.result(), result);
        m_model.dismissProblem();
    }
}

// Files that are on a disk too, where other ways lead to them.
class AppModelExportOverFilesTest : public AppModelExportTest {
protected:
    AppModelExportOverFilesTest() {
        for (const auto& [name, bytes] : m_platform.files) {
            m_folder.write(name, bytes);
        }
        openPair(inFolder("october.csv"), inFolder("november.csv"));
    }

    // The name of a file of the folder as the platform takes it.
    std::string inFolder(const std::string& name) const { return m_folder.at(name).substr(1); }

    // Answers the panel.
    void expectRefused(const std::string& name) {
        const auto files = m_platform.files;
        m_platform.chooseTarget(inFolder(name));
        m_platform.settle();
        EXPECT_EQ(problem(), "The report couldn’t be saved: It would replace a file that is being compared.") << name;
        EXPECT_EQ(m_platform.files, files) << name;
        EXPECT_FALSE(m_model.exporting());
        m_model.dismissProblem();
    }

    const TestSupport::ScratchFolder m_folder;
};

TEST_F(AppModelExportOverFilesTest, AFileThatIsBeingComparedIsNotReplaced) {
    m_folder.write("report.html", "old");
    const std::string otherWay = "../" + m_folder.path().filename().string() + "/october.csv";
    for (const std::string& name : {std::string("october.csv"), std::string("november.csv"), otherWay}) {
        m_model.exportReport(ReportKind::html);
        expectRefused(name);
    }
    for (const char* const name : {"report.html", "december.csv"}) {
        m_model.exportReport(ReportKind::html);
        m_platform.chooseTarget(inFolder(name));
        m_platform.settle();
        EXPECT_EQ(m_model.problem(), std::nullopt);
        EXPECT_EQ(m_platform.files[name].substr(0, 15), "<!doctype html>");
    }
}

TEST_F(AppModelExportOverFilesTest, AFileClosedWhileAPlaceIsAskedForIsNotReplaced) {
    for (const Side side : {Side::before, Side::after}) {
        openPair(inFolder("october.csv"), inFolder("november.csv"));
        m_model.exportReport(ReportKind::html);
        m_model.close(side);
        expectRefused(side == Side::before ? "october.csv" : "november.csv");
    }
}

TEST_F(AppModelExportOverFilesTest, AFileOpenedWhileAPlaceIsAskedForIsNotReplaced) {
    m_model.exportReport(ReportKind::html);
    load(inFolder("december.csv"), Side::after);
    m_platform.settle();
    expectRefused("december.csv");
}

TEST_F(AppModelExportOverFilesTest, AFileThatIsStillBeingReadIsNotReplaced) {
    load(inFolder("december.csv"), Side::after);
    m_model.exportReport(ReportKind::html);
    expectRefused("december.csv");
}

TEST_F(AppModelExportOverFilesTest, AFileThatWasBeingReadWhenAPlaceWasAskedForIsNotReplaced) {
    load(inFolder("december.csv"), Side::after);
    m_model.exportReport(ReportKind::html);
    m_model.cancel();
    expectRefused("december.csv");
}

TEST_F(AppModelExportTest, TheReportIsOfTheResultThatTheUserSaw) {
    m_model.exportReport(ReportKind::html);
    load("december.csv", Side::after);
    m_platform.settle();
    ASSERT_EQ(compared(), "october.csv > december.csv");
    m_platform.chooseTarget("report.html");
    m_platform.settle();
    const std::string page = m_platform.files["report.html"];
    EXPECT_NE(page.find("november.csv"), std::string::npos);
    EXPECT_EQ(page.find("december.csv"), std::string::npos);
}

TEST_F(AppModelExportTest, ANewerResultDoesNotDisturbAReportUnderWay) {
    m_model.exportReport(ReportKind::html);
    m_platform.chooseTarget("report.html");
    load("december.csv", Side::after);
    // All the rest first.
    while (m_platform.waiting() > 1) {
        step(1);
    }
    EXPECT_EQ(compared(), "october.csv > december.csv");
    EXPECT_TRUE(m_model.exporting());
    m_platform.settle();
    EXPECT_NE(m_platform.files["report.html"].find("november.csv"), std::string::npos);
}

TEST_F(AppModelExportTest, AResultThatOnlyAPanelStillHoldsIsDestroyedInTheBackground) {
    for (const std::string target : {"", "report.html"}) {
        openPair();
        const std::weak_ptr<const DiffResult> old = m_model.result();
        m_model.exportReport(ReportKind::html);
        m_model.compare();
        m_platform.settle();
        EXPECT_FALSE(old.expired());
        m_platform.chooseTarget(target);
        EXPECT_FALSE(old.expired());
        m_platform.work();
        EXPECT_TRUE(old.expired());
        m_platform.settle();
    }
}

TEST_F(AppModelExportTest, WhileOneReportIsWrittenNoOtherIsAskedFor) {
    m_model.exportReport(ReportKind::html);
    m_platform.chooseTarget("report.html");
    m_model.exportReport(ReportKind::excel);
    EXPECT_EQ(m_platform.savePanels.size(), 1U);
    m_platform.settle();
    m_model.exportReport(ReportKind::excel);
    EXPECT_EQ(m_platform.savePanels.size(), 2U);
}

}  // namespace
}  // namespace corvale
