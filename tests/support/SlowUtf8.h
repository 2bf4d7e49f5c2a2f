#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// UTF-8 as its definition reads, without a thought for speed: what the library's decoder is held against.
namespace corvale::SlowUtf8 {

struct Step {
    char32_t value = 0;
    std::size_t length = 0;
};

// The scalar that exactly these bytes encode; none when they are not one well-formed sequence (RFC 3629).
inline std::optional<char32_t> decoded(std::string_view bytes) {
    static constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    static constexpr unsigned leadMask[] = {0, 0x80, 0xE0, 0xF0, 0xF8};
    static constexpr unsigned leadMark[] = {0, 0x00, 0xC0, 0xE0, 0xF0};
    const std::size_t length = bytes.size();
    if (length < 1 || length > 4) {
        return std::nullopt;
    }
    const auto lead = static_cast<std::uint8_t>(bytes[0]);
    if ((lead & leadMask[length]) != leadMark[length]) {
        return std::nullopt;
    }
    char32_t value = lead & ~leadMask[length];
    for (const char c : bytes.substr(1)) {
        const auto byte = static_cast<std::uint8_t>(c);
        if ((byte & 0xC0U) != 0x80U) {
            return std::nullopt;
        }
        value = value << 6U | (byte & 0x3FU);
    }
    const bool isSurrogate = value >= 0xD800 && value <= 0xDFFF;
    return value < smallest[length] || isSurrogate || value > 0x10FFFF ? std::nullopt : std::optional(value);
}

// True when some bytes behind these make a well-formed sequence. The allowed values of a byte are one range, so it is
// enough to try its two ends.
inline bool beginsSequence(std::string_view bytes) {
    for (std::size_t length = bytes.size(); length <= 4; ++length) {
        for (const char filler : {'\x80', '\xBF'}) {
            if (decoded(std::string(bytes) + std::string(length - bytes.size(), filler))) {
                return true;
            }
        }
    }
    return false;
}

// The scalar at the start of a text that is not empty, or U+FFFD for its maximal subpart of an ill-formed sequence.
inline Step first(std::string_view text) {
    for (std::size_t length = 1; length <= 4 && length <= text.size(); ++length) {
        if (const auto value = decoded(text.substr(0, length))) {
            return {*value, length};
        }
    }
    std::size_t length = 1;
    while (length < text.size() && length < 4 && beginsSequence(text.substr(0, length + 1))) {
        ++length;
    }
    return {0xFFFD, length};
}

inline std::vector<char32_t> scalars(std::string_view text) {
    std::vector<char32_t> result;
    while (!text.empty()) {
        const Step step = first(text);
        result.push_back(step.value);
        text.remove_prefix(step.length);
    }
    return result;
}

inline bool isValid(std::string_view text) {
    while (!text.empty()) {
        const Step step = first(text);
        if (!decoded(text.substr(0, step.length))) {
            return false;
        }
        text.remove_prefix(step.length);
    }
    return true;
}

inline void append(std::string& target, char32_t scalar) {
    const auto put = [&target](char32_t byte) { target += static_cast<char>(byte); };
    if (scalar < 0x80) {
        put(scalar);
        return;
    }
    static constexpr char32_t leadMark[] = {0, 0xC0, 0xE0, 0xF0};
    const unsigned tails = scalar < 0x800 ? 1 : scalar < 0x10000 ? 2 : 3;
    put(leadMark[tails] | scalar >> 6U * tails);
    for (unsigned tail = tails; tail-- > 0;) {
        put(0x80U | (scalar >> 6U * tail & 0x3FU));
    }
}

inline std::string encoded(const std::vector<char32_t>& scalars) {
    std::string text;
    for (const char32_t scalar : scalars) {
        append(text, scalar);
    }
    return text;
}

}  // namespace corvale::SlowUtf8
