#pragma once

#include <QApplication>

#include "Corvale/style/Theme.h"

namespace corvale::TestSupport {

// The theme of the test program: of one application object there is one.
inline Theme& theme() {
    static auto* const theme = new Theme(*qApp);
    return *theme;
}

}  // namespace corvale::TestSupport
