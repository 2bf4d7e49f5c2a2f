#pragma once

#include <QColor>
#include <QList>
#include <QString>

class QPalette;

namespace corvale {

enum class Scheme { light, dark };

// The scheme of a desktop with this palette: dark when its text is lighter than its windows.
Scheme schemeOf(const QPalette& system);

// The colours of one kind of change: of words and symbols, behind them, around them, and alone in the overview.
struct ChangeColors {
    QColor text, fill, edge, mark;
};

// The colours of the window. All are opaque but `veil` and `scrim`. Text keeps a contrast of 4.5 on everything that it
// is put on (10 for `text`, 7.7 on a button under the pointer), marks and the borders of check boxes 3; the tests hold
// every tuned value to that.
struct Palette {
    QColor window;    // menu bar, toolbar, files bar, match bar, dialogs
    QColor surface;   // cards, strip, grid, details
    QColor surface2;  // grid header, details head, scroll tracks, a row under the pointer
    QColor menu;      // menus, and frames that open like them
    QColor control;   // a button, then under the pointer, then pressed or with its menu open
    QColor controlHover;
    QColor controlPressed;
    QColor pressed;       // progress track, a flat button under the pointer
    QColor segmentTrack;  // behind the segments of a choice, then the chosen one
    QColor segmentOn;
    QColor border;                        // edges of bars and cards
    QColor line;                          // hairlines between rows and fields
    QColor controlBorder;                 // around buttons
    QColor field;                         // around check boxes, buttons under the pointer and empty cards
    QColor popupBorder;                   // around menus and panels
    QColor text, text2, text3, disabled;  // main; secondary and icons; placeholders
    QColor accent, onAccent;              // default button, focus, selection, check marks
    QColor accentTint, accentLine;        // selected row, what is switched on, drop target
    ChangeColors added, removed, changed, formatOnly;
    QColor thumb;  // of scroll bars
    QColor hatch;  // the half of a line that is not in this file
    QColor veil;   // over a result that is being replaced
    QColor scrim;  // over the window behind the welcome sheet
    QColor toolTip, onToolTip;

    static const Palette& forScheme(Scheme scheme);
};

struct NamedColor {
    QString name;  // the member; "addedText" for added.text
    QColor color;
};

// Every colour of the palette, in the order of its members.
QList<NamedColor> namedColors(const Palette& palette);

}  // namespace corvale
