#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTcpSocket>
#include <QTest>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>

#include "Corvale/commands/CorvaleApp.h"
#include "Corvale/platform/QtPlatform.h"
#include "tests/Corvale/commands/AppTest.h"
#include "tests/Corvale/commands/SocketWatch.h"
#include "tests/support/ScratchFolder.h"

namespace corvale {
namespace {

using TestSupport::socketsOpened;

// The real system, whose save panel takes what it is told instead of asking.
class AnsweringPlatform : public QtPlatform {
public:
    using QtPlatform::QtPlatform;

    void showSavePanel(const SavePanel& panel, std::function<void(const QUrl&)> whenChosen) override {
        const QString path = target + u'.' + panel.extension;
        runOnMain([path, whenChosen] { whenChosen(QUrl::fromLocalFile(path)); });
    }

    QString target;  // without its extension
};

TEST(Privacy, IsWatched) {
    const int before = socketsOpened();
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), 9);
    EXPECT_GT(socketsOpened(), before);
}

TEST(Privacy, NothingIsConnectedWhileFilesAreComparedAndReported) {
    TestSupport::ScratchFolder folder;
    const QString store = QString::fromStdString(folder.at("store.ini"));
    AnsweringPlatform platform(std::make_unique<QSettings>(store, QSettings::IniFormat));
    QSettings settings(store, QSettings::IniFormat);
    const int before = socketsOpened();
    CorvaleApp app(platform, TestSupport::theme(), settings);
    app.start({QString::fromStdString(folder.write("before.csv", "id,url\n1,https://example.com\n")),
               QString::fromStdString(folder.write("after.csv", "id,url\n1,https://example.org/x.png\n"))});
    AppModel& model = app.model();
    ASSERT_TRUE(QTest::qWaitFor([&] { return model.result() && !model.visible().empty(); }));
    model.select(0);
    DiffFilter search;
    search.search = "example";
    model.setFilter(search);
    EXPECT_TRUE(QTest::qWaitFor([&] { return model.visible().size() == 1; }));
    platform.target = QString::fromStdString(folder.at("report"));
    for (const std::string file : {"report.xlsx", "report.html"}) {
        model.exportReport(file == "report.xlsx" ? ReportKind::excel : ReportKind::html);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !model.exporting() && std::filesystem::exists(folder.at(file)); }))
            << file;
    }
    QApplication::processEvents();
    EXPECT_EQ(socketsOpened(), before);
    EXPECT_FALSE(model.problem());
}

}  // namespace
}  // namespace corvale
