#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/engine/DiffRow.h"
#include "CorvaleKit/loading/DataTable.h"

// What two cell texts have in common under the options: white space, numbers, and the name of a difference. Pure
// functions on UTF-8 texts; none depends on the process's locale.
namespace corvale::Normalizer {

// False when normalizeWhitespace leaves the text as it is after a look at its bytes alone: no tab, line break, doubled
// or outer space and no byte C2, which begins the no-break space. Unicode's other spaces pass on purpose.
bool needsWhitespaceNormalization(std::string_view text);

// The words of the text joined by single spaces, where needsWhitespaceNormalization; else the text.
std::string normalizeWhitespace(std::string_view text);

// The number that a cell shows: signs, accounting brackets, a currency sign, grouping, percent. None when it is no
// number, not finite or longer than 40 characters.
std::optional<double> parseNumber(std::string_view text, NumberStyle style);

// '.' or ','; none when the text's separators cannot belong to one number. `style` decides texts such as 1,250.
std::optional<char> decimalSeparator(std::string_view text, NumberStyle style);

// Equal for equal numbers: "0" for both zeros, the integer below 10^15, else up to 12 significant digits.
std::string canonicalNumber(double value);

// Names the difference of two raw cell texts that were found different. `style` is resolved.
ChangeKind classify(std::string_view before, std::string_view after, NumberStyle style);

// The style whose decimal separator the text shows whichever style is assumed, as in 1.5 and 1.234,56. None for 1,250,
// which each style reads in its own way, for a text without a separator and for what is no number.
std::optional<NumberStyle> cellStyleVote(std::string_view text);

// One table and the columns of it that count.
struct StyleSample {
    const DataTable& table;
    const std::vector<std::size_t>& columns;
};

// The style that most cells of the first `rowLimit` rows of both tables vote for; `fallback` on a tie, where automatic
// counts as dotDecimal. Never automatic.
NumberStyle detectStyle(const StyleSample& before, const StyleSample& after, std::size_t rowLimit,
                        NumberStyle fallback);

// The style of a locale from its decimal separator. The caller asks its platform; this library reads no environment.
NumberStyle localeStyle(std::string_view decimalSeparator);

}  // namespace corvale::Normalizer
