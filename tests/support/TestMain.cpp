#include <gtest/gtest.h>

#include <clocale>
#include <iostream>

// Takes the user's locale, as a program with a window does: what the library answers must not depend on it.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (std::setlocale(LC_ALL, "") == nullptr) {
        std::cerr << "The locale that LC_ALL or LANG names is not installed; testing under \"C\".\n";
    }
    return RUN_ALL_TESTS();
}
