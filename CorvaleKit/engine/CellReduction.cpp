#include "CorvaleKit/engine/CellReduction.h"

#include "CorvaleKit/engine/Normalizer.h"
#include "CorvaleKit/text/Text.h"

namespace corvale {

CellReduction CellReduction::ofCells(const DiffOptions& options, NumberStyle style) {
    return {options.ignoreWhitespace, options.ignoreNumberFormat, options.ignoreCase, style};
}

CellReduction CellReduction::ofKeys(const DiffOptions& options, NumberStyle style) {
    return {true, options.ignoreNumberFormat, options.ignoreCase, style};
}

bool CellReduction::appendRewritten(std::string& target, std::string_view cell) const {
    std::string rewritten;
    std::string_view text = cell;
    if (whitespace && Normalizer::needsWhitespaceNormalization(text)) {
        rewritten = Normalizer::normalizeWhitespace(text);
        text = rewritten;
    }
    if (number) {
        if (const auto value = Normalizer::parseNumber(text, style)) {
            rewritten = Normalizer::canonicalNumber(*value);
            text = rewritten;
        }
    }
    if (lowercase && Text::lowercasingMayChange(text)) {
        Text::appendLowercased(target, text);
        return true;
    }
    if (rewritten.empty() && text.data() == cell.data()) {
        return false;
    }
    target += text;
    return true;
}

}  // namespace corvale
