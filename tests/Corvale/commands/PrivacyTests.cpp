#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "Corvale/commands/CorvaleApp.h"
#include "Corvale/platform/QtPlatform.h"
#include "tests/Corvale/commands/AppTest.h"
#include "tests/Corvale/commands/SocketWatch.h"
#include "tests/support/ScratchFolder.h"

namespace corvale {
namespace {

using TestSupport::socketsOpened;

TEST(Privacy, IsWatched) {
    const int before = socketsOpened();
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), 9);
    EXPECT_GT(socketsOpened(), before);
}

TEST(Privacy, NothingIsConnectedWhileFilesAreCompared) {
    TestSupport::ScratchFolder folder;
    const QString store = QString::fromStdString(folder.at("store.ini"));
    QtPlatform platform(std::make_unique<QSettings>(store, QSettings::IniFormat));
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
    QApplication::processEvents();
    EXPECT_EQ(socketsOpened(), before);
}

}  // namespace
}  // namespace corvale
