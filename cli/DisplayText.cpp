#include "cli/DisplayText.h"

#include <algorithm>
#include <vector>

#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::Cli::DisplayText {

namespace {

constexpr std::string_view ellipsis = "…";

bool isPlainByte(char c) { return c >= 0x20 && c < 0x7F; }

bool isLineBreak(char32_t scalar) {
    return scalar == '\n' || scalar == '\r' || scalar == 0x85 || scalar == 0x2028 || scalar == 0x2029;
}

// Embeddings, overrides and isolates (UAX #9): a terminal that obeys them shows a line in another order.
bool reorders(char32_t scalar) {
    return (scalar >= 0x202A && scalar <= 0x202E) || (scalar >= 0x2066 && scalar <= 0x2069);
}

char32_t harmless(char32_t scalar) {
    constexpr char32_t pictures = 0x2400;
    constexpr char32_t pictureOfDelete = 0x2421;
    constexpr char32_t replacement = 0xFFFD;
    if (scalar == '\t') {
        return U'⇥';
    }
    if (scalar < 0x20) {
        return pictures + scalar;
    }
    if (scalar == 0x7F) {
        return pictureOfDelete;
    }
    const bool isControl = scalar >= 0x80 && scalar < 0xA0;
    return isControl || reorders(scalar) ? replacement : scalar;
}

std::string cleaned(std::string_view text, char32_t lineBreak) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Utf8::Scalar scalar = Utf8::scalarAt(text, i);
        i += scalar.length;
        if (scalar.value == '\r' && i < text.size() && text[i] == '\n') {
            continue;
        }
        Utf8::append(result, isLineBreak(scalar.value) ? lineBreak : harmless(scalar.value));
    }
    return result;
}

std::string_view firstCharacter(std::string_view text) { return Text::firstCharacters(text, 1); }

// As many leading characters as fit.
std::string_view fitting(std::string_view text, std::size_t width) {
    std::size_t length = 0;
    while (length < text.size()) {
        const std::string_view next = firstCharacter(text.substr(length));
        const std::size_t taken = Text::displayWidth(next);
        if (taken > width) {
            break;
        }
        width -= taken;
        length += next.size();
    }
    return text.substr(0, length);
}

// The trailing characters that fit.
std::string_view fittingAtEnd(std::string_view text, std::size_t width) {
    std::vector<std::string_view> characters;
    for (std::string_view rest = text; !rest.empty();) {
        characters.push_back(firstCharacter(rest));
        rest.remove_prefix(characters.back().size());
    }
    std::size_t length = 0;
    while (!characters.empty() && Text::displayWidth(characters.back()) <= width) {
        width -= Text::displayWidth(characters.back());
        length += characters.back().size();
        characters.pop_back();
    }
    return text.substr(text.size() - length);
}

bool fits(std::string_view text, std::size_t width) {
    return text.size() <= width || Text::displayWidth(text) <= width;
}

// Bytes of the whole characters that both texts begin with.
std::size_t commonStart(std::string_view a, std::string_view b) {
    std::size_t length = 0;
    while (length < a.size()) {
        const std::string_view next = firstCharacter(a.substr(length));
        if (next != firstCharacter(b.substr(length))) {
            break;
        }
        length += next.size();
    }
    return length;
}

// Cut at the end, or at both ends when the part from `difference` on would otherwise be out of sight.
std::string shortenedAround(std::string_view text, std::size_t difference, std::size_t width) {
    if (fits(text, width) || fits(text.substr(0, difference), width * 2 / 3)) {
        return shortened(text, width);
    }
    const std::size_t room = width - Text::displayWidth(ellipsis);
    const std::size_t tail = Text::displayWidth(text.substr(difference));
    const std::size_t leadWidth = std::max(width / 3, tail < room ? room - tail : 0);
    const std::string_view lead = fittingAtEnd(text.substr(0, difference), leadWidth);
    return std::string(ellipsis) + shortened(text.substr(difference - lead.size()), room);
}

}  // namespace

std::string printable(std::string_view text) {
    if (std::all_of(text.begin(), text.end(), isPlainByte)) {
        return std::string(text);
    }
    return cleaned(text, U'↵');
}

std::string oneLine(std::string_view message) { return cleaned(message, U' '); }

std::string shortened(std::string_view printable, std::size_t width) {
    if (fits(printable, width)) {
        return std::string(printable);
    }
    return width == 0 ? std::string() : std::string(fitting(printable, width - 1)) += ellipsis;
}

std::string shortenedAtStart(std::string_view printable, std::size_t width) {
    if (fits(printable, width)) {
        return std::string(printable);
    }
    return width == 0 ? std::string() : std::string(ellipsis) += fittingAtEnd(printable, width - 1);
}

std::string shortenedInMiddle(std::string_view printable, std::size_t width) {
    if (fits(printable, width)) {
        return std::string(printable);
    }
    if (width == 0) {
        return {};
    }
    const std::size_t room = width - 1;
    const std::string_view start = fitting(printable, room - room / 2);
    // What a wide character left free at the start goes to the end.
    const std::string_view end = fittingAtEnd(printable.substr(start.size()), room - Text::displayWidth(start));
    return std::string(start).append(ellipsis).append(end);
}

Pair shortenedPair(std::string_view before, std::string_view after, std::size_t beforeWidth, std::size_t afterWidth) {
    const std::size_t difference = commonStart(before, after);
    return {shortenedAround(before, difference, beforeWidth), shortenedAround(after, difference, afterWidth)};
}

std::string grouped(std::size_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t i = digits.size(); i > 3;) {
        i -= 3;
        digits.insert(i, 1, ',');
    }
    return digits;
}

std::string counted(std::size_t number, std::string_view one, std::string_view many) {
    return grouped(number).append(" ").append(number == 1 ? one : many);
}

}  // namespace corvale::Cli::DisplayText
