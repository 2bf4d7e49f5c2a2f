#pragma once

#include <QImage>
#include <QSettings>
#include <QTemporaryDir>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "Corvale/commands/CorvaleApp.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/Button.h"
#include "Corvale/window/MainWindow.h"
#include "CorvaleKit/loading/DataTable.h"
#include "tests/Corvale/model/ScriptedPlatform.h"

namespace corvale::Screenshots {

// A scripted system whose comparison can be stopped half way.
class PausingPlatform : public TestSupport::ScriptedPlatform {
public:
    // Holds back what is posted to the main thread.
    void pause() { m_pauses = true; }
    // Delivers the first half of it.
    void deliverHalf();
    void runOnMain(std::function<void()> work) override;

private:
    bool m_pauses = false;
    std::deque<std::function<void()>> m_held;
};

// The window of one picture, with what it shows.
class Stage {
public:
    // The theme outlives the stage.
    Stage(Theme& theme, QSize size);

    // Opens a table as a file of that name: a workbook with a sheet named "Stock", or a CSV file.
    void open(const DataTable& table, Side side, const std::string& name);
    // Opens and compares.
    void compare(const DataTable& before, const DataTable& after, const std::string& beforeName,
                 const std::string& afterName);
    // The sample lists of two months.
    void compareStock();

    // The child that shows and has this accessible name.
    QWidget& named(const char* name) const;
    Button& button(const char* name) const;
    void selectRow(std::size_t visible) const;
    // Picks an item of the menu bar.
    void pick(const char* item) const;
    // A further window of the application.
    template <typename Window>
    Window& further() const {
        return *window->findChild<Window*>();
    }

    // The window with everything that is open over it.
    QImage picture() const;

    PausingPlatform platform;
    AppModel* model = nullptr;  // of the application, as is the window
    MainWindow* window = nullptr;

private:
    QTemporaryDir m_folder;
    QSettings m_store{m_folder.filePath(QStringLiteral("store.ini")), QSettings::IniFormat};
    std::unique_ptr<CorvaleApp> m_app;
};

}  // namespace corvale::Screenshots
