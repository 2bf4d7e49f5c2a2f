#pragma once

class QWidget;

namespace corvale {

// What a widget is, where its class does not say it. The style sheet knows each by this name.
//
// Needs no look: QPushButton (32 high; the default button is the accented one), QLineEdit, QComboBox, QCheckBox, QMenu.
enum class Look {
    none,
    surface,  // where text is read
    card,     // a group of settings
    secondaryText,
    sidebar,   // beside what is read, with an edge between them
    topics,    // a QListWidget in a sidebar
    nextLine,  // of a card, with a hairline to the one above
};

// Gives the widget its look, also while it is shown.
void setLook(QWidget& widget, Look look);

}  // namespace corvale
