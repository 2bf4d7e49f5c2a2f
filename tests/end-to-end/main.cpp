#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>

#include "tests/end-to-end/Screen.h"

// Runs the tests on a screen of their own. Where none can be had, they run without an application object and skip
// themselves.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const bool needsScreen = !GTEST_FLAG_GET(list_tests) && corvale::TestSupport::Screen::whatIsMissing().empty();
    std::optional<corvale::TestSupport::Screen> screen;
    std::optional<QApplication> application;
    try {
        if (needsScreen) {
            screen.emplace();
            application.emplace(argc, argv);
        }
    } catch (const std::exception& failure) {
        std::cerr << "No screen to test on: " << failure.what() << '\n';
        return EXIT_FAILURE;
    }
    return RUN_ALL_TESTS();
}
