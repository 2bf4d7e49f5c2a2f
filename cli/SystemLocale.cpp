#include "cli/SystemLocale.h"

#include <locale>
#include <stdexcept>
#include <string>

#include "CorvaleKit/engine/Normalizer.h"

namespace corvale::Cli {

NumberStyle systemNumberStyle() {
    try {
        const std::locale user("");
        return Normalizer::localeStyle(std::string(1, std::use_facet<std::numpunct<char>>(user).decimal_point()));
    } catch (const std::runtime_error&) {
        // The environment names a locale that is not installed.
        return NumberStyle::dotDecimal;
    }
}

}  // namespace corvale::Cli
