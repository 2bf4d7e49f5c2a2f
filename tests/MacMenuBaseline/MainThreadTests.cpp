#include <gtest/gtest.h>

#include <QMenu>
#include <QUndoStack>
#include <functional>
#include <thread>

#include "MacMenuBaseline/CloseGuard.h"
#include "MacMenuBaseline/MainThread.h"
#include "MacMenuBaseline/MenuBaseline.h"
#include "MacMenuBaseline/WindowReader.h"
#include "MacMenuBaseline/WindowUndoManagerReader.h"

namespace MacMenuBaseline {
namespace {

void elsewhere(const std::function<void()>& operation) { std::thread(operation).join(); }

TEST(MainThread, IsWhereTheApplicationObjectLives) { requireMainThread("this test"); }

TEST(MainThreadDeathTest, EveryOperationEndsTheProcessOnAnotherThread) {
    CloseGuard guard;
    QWidget view;
    QMenu menu;
    const MenuBaseline baseline;
    const struct {
        const char* name;
        std::function<void()> run;
    } operations[] = {
        {"CloseGuard", [] { const CloseGuard made; }},
        {"CloseGuard::close", [&] { guard.close(nullptr); }},
        {"CloseGuard::main", [&] { guard.main(); }},
        {"CloseGuard::setMain", [&] { guard.setMain(&view); }},
        {"MenuBaseline::addCloseTo", [&] { baseline.addCloseTo(menu); }},
        {"MenuBaseline::addHelpTo", [&] { baseline.addHelpTo(menu); }},
        {"CloseGuard::close", [&] { CloseWindowAction::through(guard).run(); }},
        {"hostingWindow", [&] { hostingWindow(view); }},
        {"WindowReader::placeIn", [&] { WindowReader().placeIn(view); }},
        {"WindowUndoManagerReader::undoManager", [&] { WindowUndoManagerReader::undoManager(view); }},
        {"WindowUndoManagerReader::placeIn", [&] { WindowUndoManagerReader().placeIn(view); }},
    };
    for (const auto& operation : operations) {
        EXPECT_DEATH(elsewhere(operation.run), std::string(operation.name) + " must run on the main thread");
    }
}

}  // namespace
}  // namespace MacMenuBaseline
