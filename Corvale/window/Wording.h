#pragma once

#include <QString>
#include <cstdint>
#include <string_view>

#include "Corvale/model/LoadedFile.h"
#include "CorvaleKit/engine/DiffFilter.h"
#include "CorvaleKit/engine/DiffOptions.h"

// Texts that several views of the window share.
namespace corvale::Wording {

// A number as the user's locale groups its digits.
QString count(std::int64_t number);

// UTF-8 as one line: what breaks lines or moves the pen becomes a space.
QString oneLine(std::string_view text);
// The same, without the middle of what is too long for a menu.
QString menuText(std::string_view text);

// "24 rows · 6 columns"
QString tableSize(const DataTable& table);

// Before or After.
QString side(Side side);

QString show(DiffFilter::Show show);
QString numberStyle(NumberStyle style);

}  // namespace corvale::Wording
