#include <gtest/gtest.h>

#include <csignal>

#include "tests/support/Process.h"

namespace corvale::TestSupport {
namespace {

// What `script` came to within little time. What it starts is to come to nothing later.
ProcessResult shortly(const std::string& script) {
    ProcessSettings settings;
    settings.limit = std::chrono::milliseconds(300);
    return runProcess("sh", {"-c", script}, settings);
}

TEST(Process, ThatIsLateIsKilled) {
    const ProcessResult result = shortly("exec sleep 10");
    EXPECT_TRUE(result.wasKilled);
    EXPECT_EQ(result.signal, SIGKILL);
}

TEST(Process, ThatIsLateIsKilledWithAllThatItStarted) {
    const ProcessResult result = shortly("(sleep 10; echo survived) & wait");
    EXPECT_TRUE(result.wasKilled);
    EXPECT_EQ(result.signal, SIGKILL);
    EXPECT_EQ(result.output, "");
}

TEST(Process, WhatAProgramLeavesBehindIsKilledWhenItIsLate) {
    const ProcessResult result = shortly("(sleep 10; echo survived) & echo done");
    EXPECT_TRUE(result.wasKilled);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "done\n");
}

}  // namespace
}  // namespace corvale::TestSupport
