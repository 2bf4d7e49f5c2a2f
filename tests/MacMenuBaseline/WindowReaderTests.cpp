#include <gtest/gtest.h>

#include <QMainWindow>
#include <QVBoxLayout>
#include <memory>

#include "MacMenuBaseline/WindowReader.h"

namespace MacMenuBaseline {
namespace {

using Windows = QList<QWidget*>;

// A reader that notes the windows it is told of.
struct Notes {
    Windows windows;
    WindowReader reader{[this](QWidget& window) { windows.append(&window); }};
};

TEST(WindowReader, FindsTheWindowWhenItIsShown) {
    QWidget window;
    auto* view = new QWidget(&window);
    Notes notes;
    notes.reader.placeIn(*view);
    EXPECT_EQ(notes.windows, Windows());
    window.show();
    EXPECT_EQ(notes.windows, Windows{&window});
}

TEST(WindowReader, FindsAWindowOnTheScreenAtOnce) {
    QWidget window;
    auto* view = new QWidget(&window);
    window.show();
    Notes notes;
    notes.reader.placeIn(*view);
    EXPECT_EQ(notes.windows, Windows{&window});
}

TEST(WindowReader, FindsTheWindowOfAViewThatIsHidden) {
    QWidget window;
    auto* view = new QWidget(&window);
    view->hide();
    Notes notes;
    notes.reader.placeIn(*view);
    window.show();
    EXPECT_EQ(notes.windows, Windows{&window});
}

TEST(WindowReader, TakesAViewThatWaitsForItsParentForNoWindow) {
    QWidget window;
    QVBoxLayout layout(&window);
    auto view = std::make_unique<QWidget>();
    Notes notes;
    notes.reader.placeIn(*view);
    layout.addWidget(view.release());
    EXPECT_EQ(notes.windows, Windows());
    window.show();
    EXPECT_EQ(notes.windows, Windows{&window});
}

TEST(WindowReader, ReadsAWindowItself) {
    QMainWindow window;
    Notes notes;
    notes.reader.placeIn(window);
    window.show();
    EXPECT_EQ(notes.windows, Windows{&window});
}

TEST(WindowReader, TellsOfAWindowOnceHoweverOftenItIsShown) {
    QWidget window;
    Notes notes;
    notes.reader.placeIn(window);
    window.show();
    window.hide();
    window.show();
    EXPECT_EQ(notes.windows, Windows{&window});
}

TEST(WindowReader, TellsOfTheNextWindowThatTheViewIsMovedInto) {
    QWidget first;
    QWidget second;
    first.show();
    second.show();
    auto* view = new QWidget(&first);
    Notes notes;
    notes.reader.placeIn(*view);
    view->setParent(&second);
    EXPECT_EQ(notes.windows, (Windows{&first, &second}));
    view->setParent(&first);
    EXPECT_EQ(notes.windows, (Windows{&first, &second, &first}));
}

TEST(WindowReader, TellsOfTheNextWindowWhenAParentOfTheViewIsMoved) {
    QWidget first;
    QWidget second;
    first.show();
    second.show();
    auto* pane = new QWidget(&first);
    auto* box = new QWidget(pane);
    auto* view = new QWidget(box);
    Notes notes;
    notes.reader.placeIn(*view);
    pane->setParent(&second);
    EXPECT_EQ(notes.windows, (Windows{&first, &second}));
}

TEST(WindowReader, LetsGoOfFormerParents) {
    QWidget first;
    QWidget second;
    auto* pane = new QWidget(&first);
    auto* view = new QWidget(pane);
    Notes notes;
    notes.reader.placeIn(*view);
    view->setParent(&second);
    first.show();
    EXPECT_EQ(notes.windows, Windows());
    second.show();
    EXPECT_EQ(notes.windows, Windows{&second});
}

TEST(WindowReader, TellsOfAViewThatBecomesAWindow) {
    QWidget window;
    auto view = std::make_unique<QWidget>(&window);
    Notes notes;
    notes.reader.placeIn(*view);
    window.show();
    view->setParent(nullptr);
    EXPECT_EQ(notes.windows, Windows{&window});
    view->show();
    EXPECT_EQ(notes.windows, (Windows{&window, view.get()}));
}

TEST(Probe, IsNeverSeen) {
    QWidget window;
    const Probe& probe = WindowReader().placeIn(window);
    window.show();
    EXPECT_FALSE(probe.isVisible());
}

TEST(Probe, NeedsNoCallback) {
    QWidget window;
    new Probe(&window);
    EXPECT_NO_THROW(window.show());
}

TEST(Probe, WithoutAParentIsInNoWindow) {
    Notes notes;
    Probe probe;
    probe.found = notes.reader.found;
    QWidget window;
    window.show();
    probe.setParent(&window);
    EXPECT_EQ(notes.windows, Windows{&window});
    probe.setParent(nullptr);
    EXPECT_EQ(notes.windows, Windows{&window});
}

}  // namespace
}  // namespace MacMenuBaseline
