#include "CorvaleKit/reports/XMLText.h"

#include <array>
#include <cstddef>

#include "CorvaleKit/reports/Markup.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::XMLText {

namespace {

constexpr std::array<bool, 256> plainBytes = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 0x20; byte < 0x80; ++byte) {
        plain[byte] = !Markup::isSpecial(static_cast<char>(byte));
    }
    plain['\t'] = plain['\n'] = plain['\r'] = true;
    return plain;
}();

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

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
        // Anything else is a control character, which XML cannot hold.
        target += Markup::isSpecial(text[position]) ? Markup::escape(text[position]) : std::string_view();
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
    std::size_t start = 0;  // of what is yet to be copied
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t length = copiedLength(text, position);
        if (length == 0) {
            target += text.substr(start, position - start);
            position += appendReplacement(target, text, position);
            start = position;
        }
        position += length;
    }
    target += text.substr(start);
}

}  // namespace corvale::XMLText
