#include <gtest/gtest.h>

#include <QApplication>
#include <optional>

#include "tests/end-to-end/Screen.h"

// Runs the tests on a screen of their own. Where none can be had, they run without an application object and skip
// themselves.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const bool needsScreen = !GTEST_FLAG_GET(list_tests) && corvale::TestSupport::Screen::whatIsMissing().empty();
    std::optional<corvale::TestSupport::Screen> screen;
    std::optional<QApplication> application;
    if (needsScreen) {
        screen.emplace();
        application.emplace(argc, argv);
    }
    return RUN_ALL_TESTS();
}
