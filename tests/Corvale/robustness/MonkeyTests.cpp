#include <gtest/gtest.h>

#include <QtGlobal>

#include "tests/Corvale/robustness/Monkey.h"

namespace corvale {
namespace {

// Of the environment, where it names a number.
int numberOf(const char* variable, int usual) {
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? number : usual;
}

TEST(Monkey, BreaksNothing) {
    constexpr int usualActions = 1500;
    const int actions = numberOf("CORVALE_MONKEY_ACTIONS", usualActions);
    TestSupport::Monkey monkey(static_cast<unsigned>(numberOf("CORVALE_MONKEY_SEED", 1)));
    monkey.work(actions);
    if (actions >= usualActions) {
        monkey.expectVariety();
    }
}

}  // namespace
}  // namespace corvale
