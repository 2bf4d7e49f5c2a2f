#pragma once

#include "CorvaleKit/engine/DiffOptions.h"

namespace corvale::Cli {

// The decimal style of the locale that the environment names (LC_ALL, LC_NUMERIC, LANG). This is the one question the
// program asks a locale: its own process stays in "C".
NumberStyle systemNumberStyle();

}  // namespace corvale::Cli
