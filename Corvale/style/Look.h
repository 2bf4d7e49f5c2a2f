#pragma once

class QWidget;

namespace corvale {

// What a widget is, where its class does not say it. The style sheet knows each by this name.
//
// Needs no look: QPushButton (32 high; the default button is the accented one), QToolButton (28 high; with a menu it
// has a chevron, checked it is a toggle, with autoRaise it is flat and 24 square), QLineEdit, QComboBox, QCheckBox,
// QMenu, QToolBar (with a margin of 8 on every side, since a style sheet can give it but one).
enum class Look {
    none,
    bar,         // a bar of the window, with an edge below
    surface,     // where results are shown
    surfaceBar,  // the same, with an edge below
    card,        // a file, a group of settings
    emptyCard,
    dropTarget,  // a card that files are held over
    cardSide,    // the block at the left of a card
    segments,    // a plain QWidget around the QToolButtons of a choice, without margins or gaps
    panel,       // over a veiled result
    popup,       // a frame that opens like a menu
    smallMenu,   // a QToolButton within a line of secondary text
    secondaryText,
    placeholderText,
    accentText,
    addedText,
    removedText,
    changedText,
    formatOnlyText,
    warning,   // a note that can be clicked
    sidebar,   // beside what is read, with an edge between them
    topics,    // a QListWidget in a sidebar
    nextLine,  // of a card, with a hairline to the one above
};

// Gives the widget its look, also while it is shown.
void setLook(QWidget& widget, Look look);

Look lookOf(const QWidget& widget);

}  // namespace corvale
