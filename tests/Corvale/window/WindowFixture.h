#pragma once

#include <gtest/gtest.h>

#include <QMimeData>
#include <QString>
#include <QWidget>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "Corvale/model/AppModel.h"
#include "Corvale/window/Button.h"
#include "Corvale/window/MainView.h"
#include "Corvale/window/MainWindow.h"
#include "tests/Corvale/model/ScriptedPlatform.h"
#include "tests/support-qt/TestTheme.h"

namespace corvale::TestSupport {

// The items of a menu as it would open now: titles as "[title]", separators as "-", ticked items as "✓ item", disabled
// ones as "(item)".
std::vector<std::string> itemsOf(const Button& button);
// Picks an item by its text without ticks, as the user would.
void pick(const Button& button, const std::string& item);

// What is dragged when these files are.
std::unique_ptr<QMimeData> dragOf(const std::vector<std::string>& paths);

// The whole window over a scripted system. Numbers are written as in the United States.
class WindowTest : public testing::Test {
protected:
    WindowTest();

    // Compares two files of these texts; names are "before.csv" and "after.csv".
    void compare(const std::string& before, const std::string& after);
    // Reads one file.
    void open(const std::string& text, Side side, const std::string& name = "before.csv");

    // The child with this accessible name; throws when there is none or it is another kind of widget.
    template <typename Widget>
    Widget& named(const std::string& name) {
        auto* const widget = dynamic_cast<Widget*>(childNamed(name));
        if (widget == nullptr) {
            throw std::runtime_error("no widget named " + name + " among:\n" + names());
        }
        return *widget;
    }
    Button& button(const std::string& name) { return named<Button>(name); }
    // Whether something with this accessible name shows.
    bool shows(const std::string& name);

    // A drag of files over the widget that ends with a drop, as the system sends it. Returns whether they were taken.
    static bool drop(QWidget& target, const std::vector<std::string>& paths);
    static bool dragInto(QWidget& target, const std::vector<std::string>& paths);
    static void dragOutOf(QWidget& target);

    ScriptedPlatform m_platform;
    AppModel m_model;
    MainWindow m_window;

private:
    QWidget* childNamed(const std::string& name);
    std::string names();
};

}  // namespace corvale::TestSupport
