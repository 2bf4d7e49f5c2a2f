#include <gtest/gtest.h>

#include <QDialog>
#include <QUndoGroup>
#include <QUndoStack>

#include "MacMenuBaseline/WindowUndoManagerReader.h"

namespace MacMenuBaseline {
namespace {

TEST(WindowUndoManagerReader, FindsTheUndoManagerOfTheWindow) {
    QWidget window;
    QUndoStack stack(&window);
    auto* pane = new QWidget(&window);
    EXPECT_EQ(WindowUndoManagerReader::undoManager(*new QWidget(pane)), &stack);
}

TEST(WindowUndoManagerReader, TheNearestOneWins) {
    QWidget window;
    const QUndoStack outer(&window);
    auto* pane = new QWidget(&window);
    auto* inner = new QUndoStack(pane);
    auto* view = new QWidget(pane);
    EXPECT_EQ(WindowUndoManagerReader::undoManager(*view), inner);
    auto* own = new QUndoStack(view);
    EXPECT_EQ(WindowUndoManagerReader::undoManager(*view), own);
}

TEST(WindowUndoManagerReader, TakesTheActiveStackOfAGroup) {
    QWidget window;
    auto* group = new QUndoGroup(&window);
    EXPECT_EQ(WindowUndoManagerReader::undoManager(window), nullptr);
    auto* stack = new QUndoStack(group);
    stack->setActive();
    EXPECT_EQ(WindowUndoManagerReader::undoManager(window), stack);
}

TEST(WindowUndoManagerReader, ADialogDoesNotShareThatOfItsWindow) {
    QWidget window;
    const QUndoStack stack(&window);
    const QDialog dialog(&window);
    EXPECT_EQ(WindowUndoManagerReader::undoManager(dialog), nullptr);
}

TEST(WindowUndoManagerReader, TellsOfTheUndoManagerOfEachWindowThatTheViewIsMovedInto) {
    QWidget first;
    QUndoStack stack(&first);
    QWidget second;
    auto* view = new QWidget(&first);
    QList<QUndoStack*> told;
    const WindowUndoManagerReader reader{[&told](QUndoStack* manager) { told.append(manager); }};
    reader.placeIn(*view);
    EXPECT_EQ(told, QList<QUndoStack*>());
    first.show();
    EXPECT_EQ(told, QList<QUndoStack*>{&stack});
    second.show();
    view->setParent(&second);
    EXPECT_EQ(told, (QList<QUndoStack*>{&stack, nullptr}));
}

TEST(WindowUndoManagerReader, NeedsNoCallback) {
    QWidget window;
    WindowUndoManagerReader().placeIn(window);
    window.show();
    EXPECT_EQ(WindowUndoManagerReader::undoManager(window), nullptr);
}

}  // namespace
}  // namespace MacMenuBaseline
