#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <memory>
#include <vector>

#include "Corvale/platform/QtPlatform.h"
#include "tests/support/ScratchFolder.h"

namespace corvale {
namespace {

class PanelTest : public testing::Test {
protected:
    PanelTest() {
        for (const char* const name : {"a.csv", "b.csv", "c.pdf"}) {
            m_folder.write(name, "x");
        }
    }
    ~PanelTest() override { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    // The panel that is open, brought to the scratch folder; null when there is none.
    QFileDialog* panel() const {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            auto* const dialog = qobject_cast<QFileDialog*>(widget);
            if (dialog != nullptr && dialog->isVisible()) {
                dialog->setDirectory(QString::fromStdString(m_folder.path().string()));
                return dialog;
            }
        }
        return nullptr;
    }
    static QPushButton* button(const QFileDialog* dialog, QDialogButtonBox::StandardButton which) {
        return dialog->findChild<QDialogButtonBox*>()->button(which);
    }
    static QLineEdit* nameField(const QFileDialog* dialog) { return dialog->findChild<QLineEdit*>(); }
    QUrl url(std::string_view name) const { return QUrl::fromLocalFile(QString::fromStdString(m_folder.at(name))); }

    void askForFiles(bool several) {
        m_platform->showOpenPanel({QStringLiteral("Choose the newer file (After)."),
                                   several,
                                   {QStringLiteral("xlsx"), QStringLiteral("csv")}},
                                  [this](const QList<QUrl>& urls) { m_files.emplace_back(urls); });
    }
    void askForPlace() {
        m_platform->showSavePanel({QStringLiteral("november changes.xlsx"), QStringLiteral("xlsx")},
                                  [this](const QUrl& url) { m_places.emplace_back(url); });
    }

    TestSupport::ScratchFolder m_folder;
    std::unique_ptr<QtPlatform> m_platform = std::make_unique<QtPlatform>(
        std::make_unique<QSettings>(QString::fromStdString(m_folder.at("settings.ini")), QSettings::IniFormat));
    std::vector<QList<QUrl>> m_files;  // one entry an answer
    std::vector<QUrl> m_places;
};

using OpenPanel = PanelTest;
using SavePanel = PanelTest;

TEST_F(OpenPanel, SaysWhatItIsFor) {
    askForFiles(false);
    const QFileDialog* const dialog = panel();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Choose the newer file (After)."));
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(dialog->nameFilters(),
              QStringList({QStringLiteral("Spreadsheets (*.xlsx *.csv)"), QStringLiteral("All files (*)")}));
    EXPECT_EQ(button(dialog, QDialogButtonBox::Open)->text().remove(u'&'), QStringLiteral("Open"));
    EXPECT_TRUE(m_files.empty());
    button(dialog, QDialogButtonBox::Cancel)->click();
}

TEST_F(OpenPanel, GivesTheChosenFile) {
    askForFiles(false);
    QFileDialog* const dialog = panel();
    ASSERT_NE(dialog, nullptr);
    nameField(dialog)->setText(QStringLiteral("b.csv"));
    button(dialog, QDialogButtonBox::Open)->click();
    ASSERT_EQ(m_files.size(), 1U);
    EXPECT_EQ(m_files[0], QList<QUrl>({url("b.csv")}));
}

TEST_F(OpenPanel, GivesSeveralFilesInTheirOrderWhereSeveralMayBeChosen) {
    askForFiles(true);
    QFileDialog* const dialog = panel();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFiles);
    nameField(dialog)->setText(QStringLiteral("\"b.csv\" \"a.csv\""));
    button(dialog, QDialogButtonBox::Open)->click();
    ASSERT_EQ(m_files.size(), 1U);
    EXPECT_EQ(m_files[0], QList<QUrl>({url("b.csv"), url("a.csv")}));
}

TEST_F(OpenPanel, TakesOneFileWhereOneIsWanted) {
    askForFiles(false);
    QFileDialog* const dialog = panel();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFile);
    button(dialog, QDialogButtonBox::Cancel)->click();
}

TEST_F(OpenPanel, GivesNothingWhenDismissed) {
    askForFiles(true);
    ASSERT_NE(panel(), nullptr);
    nameField(panel())->setText(QStringLiteral("b.csv"));
    button(panel(), QDialogButtonBox::Cancel)->click();
    EXPECT_EQ(m_files, std::vector<QList<QUrl>>({{}}));
}

TEST_F(OpenPanel, GivesNothingWhenItsWindowIsClosed) {
    askForFiles(true);
    ASSERT_NE(panel(), nullptr);
    panel()->close();
    EXPECT_EQ(m_files, std::vector<QList<QUrl>>({{}}));
}

TEST_F(OpenPanel, IsDestroyedOnceItIsAnswered) {
    askForFiles(false);
    const QPointer<QFileDialog> dialog = panel();
    ASSERT_NE(dialog, nullptr);
    button(dialog, QDialogButtonBox::Cancel)->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.isNull(); }));
}

TEST_F(OpenPanel, BelongsToTheActiveWindowAndGoesWithIt) {
    QPointer<QFileDialog> dialog;
    {
        QWidget window;
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        askForFiles(false);
        dialog = panel();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->parentWidget(), &window);
        EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    }
    EXPECT_TRUE(dialog.isNull());
    EXPECT_TRUE(m_files.empty());
}

TEST_F(OpenPanel, AnswersNobodyOnceThePlatformIsGone) {
    askForFiles(false);
    QFileDialog* const dialog = panel();
    ASSERT_NE(dialog, nullptr);
    m_platform.reset();
    nameField(dialog)->setText(QStringLiteral("b.csv"));
    button(dialog, QDialogButtonBox::Open)->click();
    EXPECT_TRUE(m_files.empty());
}

TEST_F(SavePanel, ProposesTheName) {
    askForPlace();
    QFileDialog* const dialog = panel();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Export Report"));
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(nameField(dialog)->text(), QStringLiteral("november changes.xlsx"));
    EXPECT_EQ(dialog->nameFilters(), QStringList({QStringLiteral("*.xlsx")}));
    button(dialog, QDialogButtonBox::Save)->click();
    EXPECT_EQ(m_places, std::vector<QUrl>({url("november changes.xlsx")}));
}

TEST_F(SavePanel, AddsTheExtensionThatIsMissing) {
    for (const auto& [typed, expected] : {std::pair("report", "report.xlsx"),
                                          std::pair("report.xlsx", "report.xlsx"),
                                          std::pair("report.XLSX", "report.XLSX"),
                                          std::pair("report v1.2", "report v1.2.xlsx"),
                                          std::pair("report.csv", "report.csv.xlsx"),
                                          std::pair("Größe 100%", "Größe 100%.xlsx")}) {
        askForPlace();
        QFileDialog* const dialog = panel();
        ASSERT_NE(dialog, nullptr);
        nameField(dialog)->setText(QString::fromUtf8(typed));
        button(dialog, QDialogButtonBox::Save)->click();
        ASSERT_FALSE(m_places.empty());
        EXPECT_EQ(m_places.back(), url(expected)) << typed;
    }
}

// As the desktop's own dialogs answer, which neither take another name from us nor ask about it.
class ForeignSavePanel : public PanelTest {
protected:
    void answer(const char* name) {
        askForPlace();
        QFileDialog* const dialog = panel();
        ASSERT_NE(dialog, nullptr);
        nameField(dialog)->setText(QString::fromUtf8(name));
        static_cast<QDialog*>(dialog)->done(QDialog::Accepted);
    }
    static QMessageBox* question() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }
};

TEST_F(ForeignSavePanel, AddsTheExtensionToo) {
    answer("report v1.2");
    EXPECT_EQ(m_places, std::vector<QUrl>({url("report v1.2.xlsx")}));
    EXPECT_EQ(question(), nullptr);
}

TEST_F(ForeignSavePanel, AsksBeforeTheExtensionMakesItTheNameOfAnotherFile) {
    m_folder.write("report v1.2.xlsx", "kept");
    answer("report v1.2");
    EXPECT_TRUE(m_places.empty());
    ASSERT_NE(question(), nullptr);
    EXPECT_EQ(question()->text(), QStringLiteral("“report v1.2.xlsx” exists already. Do you want to replace it?"));
    question()->button(QMessageBox::Cancel)->click();
    EXPECT_EQ(m_places, std::vector<QUrl>({QUrl()}));

    answer("report v1.2");
    ASSERT_NE(question(), nullptr);
    question()->close();
    EXPECT_EQ(m_places, std::vector<QUrl>({QUrl(), QUrl()}));

    answer("report v1.2");
    ASSERT_NE(question(), nullptr);
    for (QAbstractButton* const button : question()->buttons()) {
        if (question()->buttonRole(button) == QMessageBox::AcceptRole) {
            button->click();
            break;
        }
    }
    EXPECT_EQ(m_places.back(), url("report v1.2.xlsx"));
}

TEST_F(ForeignSavePanel, HasAskedAboutAWholeNameItself) {
    m_folder.write("report.xlsx", "old");
    answer("report.xlsx");
    EXPECT_EQ(m_places, std::vector<QUrl>({url("report.xlsx")}));
    EXPECT_EQ(question(), nullptr);
}

TEST_F(SavePanel, GivesNothingWhenDismissed) {
    askForPlace();
    ASSERT_NE(panel(), nullptr);
    button(panel(), QDialogButtonBox::Cancel)->click();
    EXPECT_EQ(m_places, std::vector<QUrl>({QUrl()}));
}

}  // namespace
}  // namespace corvale
