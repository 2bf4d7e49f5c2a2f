#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/engine/Normalizer.h"
#include "tests/support/SlowNormalizer.h"

namespace {

using namespace corvale;

// Equal to the last bit, so that the two zeros differ.
bool areSame(std::optional<double> a, std::optional<double> b) {
    return a.has_value() == b.has_value() &&
           (!a || std::bit_cast<std::uint64_t>(*a) == std::bit_cast<std::uint64_t>(*b));
}

void checkCanonicalText(double value) {
    const std::string text = Normalizer::canonicalNumber(value);
    CORVALE_REQUIRE(text == SlowNormalizer::canonicalNumber(value), "a number is written otherwise");
    const auto read = Normalizer::parseNumber(text, NumberStyle::dotDecimal);
    CORVALE_REQUIRE(read.has_value(), "a canonical text is no number");
    // From 10^12 on the twelve digits may leave a whole number, which is written out.
    const bool isCutToWhole = std::abs(value) >= 1e12 && std::abs(value) < 1e15;
    CORVALE_REQUIRE(isCutToWhole || Normalizer::canonicalNumber(*read) == text, "a canonical text is another's number");
}

void checkStyle(const std::string& text, NumberStyle style) {
    const auto value = Normalizer::parseNumber(text, style);
    CORVALE_REQUIRE(areSame(value, SlowNormalizer::parseNumber(text, style)), "a number is read otherwise");
    const auto separator = Normalizer::decimalSeparator(text, style);
    const auto slow = SlowNormalizer::decimalSeparator(SlowNormalizer::charactersOf(text), style);
    CORVALE_REQUIRE(separator ? slow == std::string(1, *separator) : !slow, "another separator is decimal");
    if (value) {
        checkCanonicalText(*value);
    }
}

}  // namespace

// Any bytes are read exactly as the rules say, and what was read is written so that it reads back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    checkStyle(text, NumberStyle::dotDecimal);
    checkStyle(text, NumberStyle::commaDecimal);
    CORVALE_REQUIRE(areSame(Normalizer::parseNumber(text, NumberStyle::automatic),
                            Normalizer::parseNumber(text, NumberStyle::dotDecimal)),
                    "the automatic style is not the one with a decimal point");
    CORVALE_REQUIRE(Normalizer::cellStyleVote(text) == SlowNormalizer::cellStyleVote(text), "a cell votes otherwise");
    CORVALE_REQUIRE(Normalizer::normalizeWhitespace(text) == SlowNormalizer::normalizeWhitespace(text),
                    "white space is normalised otherwise");
    return 0;
}
