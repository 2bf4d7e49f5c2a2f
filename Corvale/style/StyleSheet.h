#pragma once

#include <QString>

#include "Corvale/style/Palette.h"

namespace corvale::StyleSheet {

// The style sheet of the window: the rules that the program carries, with the colours of `palette` in the place of
// their names. A rule that names a colour which the palette lacks ends the process.
QString make(const Palette& palette);

}  // namespace corvale::StyleSheet
