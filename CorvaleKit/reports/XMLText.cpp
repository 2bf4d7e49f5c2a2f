#include "CorvaleKit/reports/XMLText.h"

#include <array>
#include <cstddef>

#include "CorvaleKit/text/Utf8.h"

namespace corvale::XMLText {

namespace {

constexpr std::array<bool, 256> plainBytes = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 0x20; byte < 0x80; ++byte) {
        plain[byte] = byte != '&' && byte != '<' && byte != '>' && byte != '"';
    }
    plain['\t'] = plain['\n'] = plain['\r'] = true;
    return plain;
}();

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

// What stands for a byte of ASCII that is not plain.
std::string_view escape(char byte) {
    switch (byte) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        default:
            return {};
    }
}

// How many bytes at `position` can be copied as they stand; 0 when something else stands for them.
std::size_t copiedLength(std::string_view text, std::size_t position) {
    const auto byte = static_cast<unsigned char>(text[position]);
    if (byte < 0x80) {
        return plainBytes[byte] ? 1 : 0;
    }
    const auto [scalar, length] = Utf8::scalarAt(text, position);
    const bool isOrdinary = scalar < 0xFFFD || scalar > 0xFFFF;
    return isOrdinary ? length : 0;
}

// Appends what stands for the bytes at `position`, and returns their number.
std::size_t appendReplacement(std::string& target, std::string_view text, std::size_t position) {
    if (static_cast<unsigned char>(text[position]) < 0x80) {
        target += escape(text[position]);
        return 1;
    }
    const auto [scalar, length] = Utf8::scalarAt(text, position);
    if (scalar == U'\uFFFD') {
        target += replacementCharacter;
    }
    return length;
}

}  // namespace

void appendEscaped(std::string& target, std::string_view text) {
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t start = position;
        std::size_t length = 1;
        while (position < text.size() && (length = copiedLength(text, position)) != 0) {
            position += length;
        }
        target.append(text, start, position - start);
        if (position < text.size()) {
            position += appendReplacement(target, text, position);
        }
    }
}

}  // namespace corvale::XMLText
