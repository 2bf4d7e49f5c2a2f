#pragma once

#include <QFont>

namespace corvale {

// What a text is, for its size and weight. There are no fonts but the system's.
enum class TextRole {
    body,
    bodyStrong,  // what is switched on, headings of groups
    bodyBold,    // the new value of a changed cell
    stateTitle,  // "No rows match"
    cardName,
    detailsKey,
    chipCount,
    secondary,
    rowNumber,
    longRowNumber,  // one with too many digits for its column
    caption,
    helpText,
    helpTitle,
    welcomeTitle,
    panelTitle,
    sideBySideCell,
};

// The font of a role, made from the system's: as much larger or smaller as the role is than 13 pixels.
QFont fontFor(TextRole role, const QFont& system);

// The same for the application's own font.
QFont fontFor(TextRole role);

}  // namespace corvale
