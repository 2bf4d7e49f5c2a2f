#include "CorvaleKit/engine/Normalizer.h"

#include <algorithm>
#include <cmath>

#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"
#include "CorvaleKit/text/WhitespaceScan.h"

namespace corvale::Normalizer {

namespace {

std::size_t endOfWord(std::string_view text, std::size_t position) {
    while (position < text.size()) {
        const auto scalar = Utf8::scalarAt(text, position);
        if (Text::isSpaceOrLineBreak(scalar.value)) {
            break;
        }
        position += scalar.length;
    }
    return position;
}

std::size_t startOfWord(std::string_view text, std::size_t position) {
    while (position < text.size()) {
        const auto scalar = Utf8::scalarAt(text, position);
        if (!Text::isSpaceOrLineBreak(scalar.value)) {
            break;
        }
        position += scalar.length;
    }
    return position;
}

std::string joinedWords(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t start = startOfWord(text, 0); start < text.size();) {
        const std::size_t end = endOfWord(text, start);
        if (!result.empty()) {
            result += ' ';
        }
        result.append(text, start, end - start);
        start = startOfWord(text, end);
    }
    return result;
}

// A normalised text that is only stored where it differs from the cell.
class NormalizedView {
public:
    explicit NormalizedView(std::string_view text) : m_text(text) {
        if (WhitespaceScan::needsNormalization(text)) {
            m_storage = joinedWords(text);
            m_text = m_storage;
        }
    }
    NormalizedView(const NormalizedView&) = delete;
    NormalizedView& operator=(const NormalizedView&) = delete;

    std::string_view text() const { return m_text; }

private:
    std::string m_storage;
    std::string_view m_text;
};

// Numbers this far apart differ within the twelve digits of their canonical texts, and writing those takes longest.
bool areFarApart(double a, double b) {
    constexpr double wellAboveTwelveDigits = 1e-10;
    return std::abs(a - b) > wellAboveTwelveDigits * std::max(std::abs(a), std::abs(b));
}

bool areEqualNumbers(std::string_view a, std::string_view b, NumberStyle style) {
    const auto first = parseNumber(a, style);
    if (!first) {
        return false;
    }
    const auto second = parseNumber(b, style);
    return second && !areFarApart(*first, *second) && canonicalNumber(*first) == canonicalNumber(*second);
}

bool hasSeparator(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return c == '.' || c == ','; });
}

struct StyleVotes {
    std::size_t dots = 0;
    std::size_t commas = 0;

    void add(std::string_view cell) {
        // Bytes, not characters: a look at the length before anything is read.
        constexpr std::size_t longestVoter = 40;
        if (cell.size() > longestVoter || !hasSeparator(cell)) {
            return;
        }
        const auto vote = cellStyleVote(cell);
        dots += vote == NumberStyle::dotDecimal ? 1 : 0;
        commas += vote == NumberStyle::commaDecimal ? 1 : 0;
    }

    // Goes through the cells that the source has: a wide table of few cells is a common one.
    void add(const StyleSample& sample, std::size_t rowLimit) {
        std::vector<bool> isCompared(sample.table.headers().size(), false);
        for (const std::size_t column : sample.columns) {
            isCompared[column] = true;
        }
        const std::size_t rowCount = std::min(sample.table.rows().size(), rowLimit);
        for (std::size_t row = 0; row < rowCount; ++row) {
            sample.table.rows()[row].forEachStored([&](std::size_t column, std::string_view cell) {
                if (isCompared[column]) {
                    add(cell);
                }
            });
        }
    }
};

}  // namespace

bool needsWhitespaceNormalization(std::string_view text) { return WhitespaceScan::needsNormalization(text); }

std::string normalizeWhitespace(std::string_view text) {
    return WhitespaceScan::needsNormalization(text) ? joinedWords(text) : std::string(text);
}

ChangeKind classify(std::string_view before, std::string_view after, NumberStyle style) {
    const NormalizedView first(before);
    const NormalizedView second(after);
    if (first.text() == second.text()) {
        return ChangeKind::whitespace;
    }
    if (Text::equalIgnoringCase(first.text(), second.text())) {
        return ChangeKind::letterCase;
    }
    return areEqualNumbers(first.text(), second.text(), style) ? ChangeKind::numberFormat : ChangeKind::value;
}

std::optional<NumberStyle> cellStyleVote(std::string_view text) {
    const std::string_view trimmed = Text::trimSpaces(text);
    // What reads as a number is short enough and holds a digit, so neither is looked at here.
    if (!hasSeparator(trimmed) ||
        !(parseNumber(trimmed, NumberStyle::dotDecimal) || parseNumber(trimmed, NumberStyle::commaDecimal))) {
        return std::nullopt;
    }
    const auto asDot = decimalSeparator(trimmed, NumberStyle::dotDecimal);
    if (!asDot || asDot != decimalSeparator(trimmed, NumberStyle::commaDecimal)) {
        return std::nullopt;
    }
    return *asDot == ',' ? NumberStyle::commaDecimal : NumberStyle::dotDecimal;
}

NumberStyle detectStyle(const StyleSample& before, const StyleSample& after, std::size_t rowLimit,
                        NumberStyle fallback) {
    StyleVotes votes;
    votes.add(before, rowLimit);
    votes.add(after, rowLimit);
    if (votes.commas != votes.dots) {
        return votes.commas > votes.dots ? NumberStyle::commaDecimal : NumberStyle::dotDecimal;
    }
    return fallback == NumberStyle::commaDecimal ? NumberStyle::commaDecimal : NumberStyle::dotDecimal;
}

NumberStyle localeStyle(std::string_view decimalSeparator) {
    return decimalSeparator == "," ? NumberStyle::commaDecimal : NumberStyle::dotDecimal;
}

}  // namespace corvale::Normalizer
