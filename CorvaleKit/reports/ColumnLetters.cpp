#include "CorvaleKit/reports/ColumnLetters.h"

#include <algorithm>

namespace corvale {

std::string columnLetters(std::size_t column) {
    // No digit of this number system is a zero, hence the step back after every division.
    std::string letters(1, static_cast<char>('A' + column % 26));
    for (column /= 26; column > 0; column = (column - 1) / 26) {
        letters += static_cast<char>('A' + (column - 1) % 26);
    }
    std::reverse(letters.begin(), letters.end());
    return letters;
}

}  // namespace corvale
