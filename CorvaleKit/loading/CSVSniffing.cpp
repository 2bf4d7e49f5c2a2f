#include <algorithm>
#include <array>
#include <cstddef>

#include "CorvaleKit/loading/CSV.h"
#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::CSV {

namespace {

bool isSuspect(char32_t scalar) {
    if (scalar < 0x20) {
        return scalar != '\t' && scalar != '\n' && scalar != '\r';
    }
    return (scalar >= 0x7F && scalar <= 0x9F) || scalar == 0xFFFD;
}

}  // namespace

bool looksLikeText(std::string_view text) {
    constexpr std::size_t sampledCharacters = 65536;
    const std::string_view sample = Text::firstCharacters(text, sampledCharacters);
    std::size_t scalars = 0;
    std::size_t suspects = 0;
    for (std::size_t i = 0; i < sample.size();) {
        const auto scalar = Utf8::scalarAt(sample, i);
        suspects += isSuspect(scalar.value) ? 1U : 0U;
        ++scalars;
        i += scalar.length;
    }
    return scalars >= 50 * suspects;
}

char detectDelimiter(std::string_view text) {
    struct Candidate {
        char delimiter;
        std::size_t count;
    };
    std::array<Candidate, 3> candidates{{{',', 0}, {'\t', 0}, {';', 0}}};  // in the order that wins ties
    bool quoted = false;
    for (const char c : text) {
        if (c == '"') {
            quoted = !quoted;
        } else if (!quoted) {
            if (c == '\r' || c == '\n') {
                break;
            }
            for (auto& candidate : candidates) {
                candidate.count += c == candidate.delimiter ? 1U : 0U;
            }
        }
    }
    return std::max_element(candidates.begin(),
                            candidates.end(),
                            [](const Candidate& a, const Candidate& b) { return a.count < b.count; })
        ->delimiter;
}

}  // namespace corvale::CSV
