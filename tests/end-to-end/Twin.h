#pragma once

#include <QPoint>
#include <QSettings>
#include <QSize>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <string>

#include "Corvale/commands/CorvaleApp.h"
#include "Corvale/platform/QtPlatform.h"
#include "Corvale/style/Theme.h"

namespace corvale::TestSupport {

// The same window as the program's, in this process and never shown: it tells where in the program's window things are,
// so that no test knows the layout by heart.
class Twin {
public:
    // Settings are read from that file.
    explicit Twin(const QString& settingsFile);

    // Reads and compares the pair as the program would; false when no result comes of it.
    bool compare(const std::string& before, const std::string& after);

    // For what the user does besides.
    AppModel& model() { return m_model; }
    QSize size() const { return m_window.size(); }
    // The middle of a control, in the window: what can be seen and has an accessible name, or else a tooltip, that
    // begins so. Throws std::runtime_error when there is none.
    QPoint middleOf(const QString& control);
    // The middle of a line of the grid, 0-based.
    QPoint middleOfLine(std::int64_t line);

private:
    QWidget& find(const QString& control);
    template <typename NameOf>
    QWidget* find(const QString& name, NameOf nameOf);
    void layOut();

    QtPlatform m_platform;
    Theme m_theme;
    QSettings m_store;
    CorvaleApp m_app{m_platform, m_theme, m_store};
    AppModel& m_model = m_app.model();
    MainWindow& m_window = m_app.window();
};

}  // namespace corvale::TestSupport
