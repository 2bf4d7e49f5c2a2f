#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "tests/Corvale/commands/AppTest.h"

namespace corvale {
namespace {

class AboutPanelTest : public TestSupport::AppTest {
protected:
    AboutPanelTest() {
        start();
        trigger("About Corvale");
    }

    AboutPanel& about() { return window<AboutPanel>(); }
};

TEST_F(AboutPanelTest, SaysWhatTheProgramIsAndWhatItKeepsPrivate) {
    EXPECT_TRUE(about().isVisible());
    EXPECT_TRUE(child<QLabel>(about(),
                              QStringLiteral("Compare two spreadsheets by key column and see every changed row "
                                             "and cell"))
                    .isVisible());
    QStringList texts;
    for (const QLabel* label : about().findChildren<QLabel*>()) {
        texts.append(label->text());
    }
    EXPECT_EQ(texts.filter(QStringLiteral("Your spreadsheets stay on this Mac. ")).size(), 1);
    EXPECT_EQ(texts.filter(QStringLiteral("Version ")).size(), 1);
}

TEST_F(AboutPanelTest, NamesTheLibrariesAndTheirLicenses) {
    const QString licenses = about().findChild<QPlainTextEdit*>()->toPlainText();
    for (const QString& line : {QStringLiteral("Qt %1 — GNU LGPL 3.0").arg(QString::fromLatin1(qVersion())),
                                QStringLiteral("Abseil — Apache 2.0"),
                                QStringLiteral("Expat — MIT"),
                                QStringLiteral("libdeflate — MIT"),
                                QStringLiteral("utf8proc — MIT"),
                                QStringLiteral("JSON for Modern C++ — MIT")}) {
        EXPECT_TRUE(licenses.contains(u'\n' + line)) << line.toStdString();
    }
}

TEST_F(AboutPanelTest, CopiesWhatSupportAsksForAndNothingOfTheFiles) {
    m_platform.files["secret.csv"] = "id\n1\n";
    model().load(TestSupport::ScriptedPlatform::url("secret.csv"), Side::before);
    m_platform.settle();
    child<QPushButton>(about(), QStringLiteral("Copy details for support")).click();
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.startsWith(QStringLiteral("Corvale "))) << copied.toStdString();
    EXPECT_TRUE(copied.contains(QString::fromLatin1(qVersion()))) << copied.toStdString();
    EXPECT_FALSE(copied.contains(QStringLiteral("secret"))) << copied.toStdString();
}

}  // namespace
}  // namespace corvale
