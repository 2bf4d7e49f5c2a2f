#pragma once

#include <optional>
#include <string_view>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/loading/CellGrid.h"

// Delimited text (RFC 4180 and what is found in the wild). Nothing here fails: bad bytes become U+FFFD or an empty
// text.
namespace corvale::CSV {

// UTF-8 text from a file's bytes: a byte order mark decides for UTF-8 or UTF-16, else strict UTF-8, else code page
// 1252, else UTF-8 with U+FFFD for bad bytes. UTF-16 that does not decode gives an empty text. Bytes that are UTF-8
// already are handed back without a copy.
Bytes decodeText(Bytes bytes);

// False when more than 2 % of the first 65,536 characters are control characters or U+FFFD. True for an empty text.
bool looksLikeText(std::string_view text);

// Comma, tab or semicolon, whichever the first record has most of outside quotes; comma on a tie or without any, tab
// before semicolon.
char detectDelimiter(std::string_view text);

// The rows as written, ragged. `delimiter` is an ASCII character, detected when none is given. The grid keeps `text` as
// its buffer: only a cell with a doubled quote, or text behind its closing quote, is rewritten, in place.
CellGrid parse(Bytes text, std::optional<char> delimiter = std::nullopt);

}  // namespace corvale::CSV
