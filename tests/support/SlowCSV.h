#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/text/Text.h"
#include "tests/support/SlowUtf8.h"

// The reading of delimited text scalar by scalar, one state at a time: what the fast reader is held against, by the
// tests and by the fuzz target.
namespace corvale::SlowCSV {

using Rows = std::vector<std::vector<std::string>>;

class Parser {
public:
    explicit Parser(char32_t delimiter) : m_delimiter(delimiter) {}

    Rows parse(const std::vector<char32_t>& text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool hasNext = i + 1 < text.size();
            const bool consumesNext = m_insideQuotes ? readInside(text[i], hasNext && text[i + 1] == U'"')
                                                     : readOutside(text[i], hasNext && text[i + 1] == U'\n');
            i += consumesNext ? 1U : 0U;
        }
        if (!m_cell.empty() || !m_row.empty() || m_cellWasQuoted) {
            endRow();
        }
        return m_rows;
    }

private:
    bool readInside(char32_t scalar, bool quoteFollows) {
        if (scalar != U'"') {
            SlowUtf8::append(m_cell, scalar);
            return false;
        }
        if (quoteFollows) {
            m_cell += '"';
            return true;
        }
        m_insideQuotes = false;
        return false;
    }

    bool readOutside(char32_t scalar, bool lineFeedFollows) {
        if (scalar == U'"' && m_atCellStart) {
            m_insideQuotes = true;
            m_cellWasQuoted = true;
            m_atCellStart = false;
        } else if (scalar == m_delimiter) {
            endCell();
        } else if (scalar == U'\r') {
            endRow();
            return lineFeedFollows;
        } else if (scalar == U'\n') {
            endRow();
        } else {
            SlowUtf8::append(m_cell, scalar);
            m_atCellStart = false;
        }
        return false;
    }

    void endCell() {
        m_row.push_back(m_cell);
        m_cell.clear();
        m_atCellStart = true;
        m_cellWasQuoted = false;
    }

    void endRow() {
        endCell();
        m_rows.push_back(m_row);
        m_row.clear();
    }

    char32_t m_delimiter;
    std::string m_cell;
    std::vector<std::string> m_row;
    Rows m_rows;
    bool m_insideQuotes = false;
    bool m_atCellStart = true;
    bool m_cellWasQuoted = false;
};

inline Rows parse(std::string_view text, char delimiter) {
    return Parser(static_cast<unsigned char>(delimiter)).parse(SlowUtf8::scalars(text));
}

inline char detectDelimiter(std::string_view text) {
    std::array<std::size_t, 128> counts{};
    bool insideQuotes = false;
    for (const char32_t scalar : SlowUtf8::scalars(text)) {
        if (scalar == U'"') {
            insideQuotes = !insideQuotes;
        } else if (!insideQuotes && (scalar == U'\r' || scalar == U'\n')) {
            break;
        } else if (!insideQuotes && scalar < counts.size()) {
            ++counts[scalar];
        }
    }
    const std::size_t commas = counts[','];
    const std::size_t tabs = counts['\t'];
    const std::size_t semicolons = counts[';'];
    if (semicolons > commas && semicolons > tabs) {
        return ';';
    }
    return tabs > commas ? '\t' : ',';
}

inline bool looksLikeText(std::string_view text) {
    std::size_t scalars = 0;
    std::size_t suspects = 0;
    for (int characters = 0; characters < 65536 && !text.empty(); ++characters) {
        const std::string_view character = Text::firstCharacters(text, 1);
        for (const char32_t scalar : SlowUtf8::scalars(character)) {
            const bool isControl = scalar < 0x20 && scalar != U'\t' && scalar != U'\n' && scalar != U'\r';
            const bool isSuspect =
                isControl || scalar == 0x7F || (scalar >= 0x80 && scalar <= 0x9F) || scalar == 0xFFFD;
            suspects += isSuspect ? 1U : 0U;
            ++scalars;
        }
        text.remove_prefix(character.size());
    }
    return scalars == 0 || scalars >= 50 * suspects;
}

// Code page 1252; none for its five undefined bytes.
inline std::optional<std::string> fromCodePage1252(std::string_view bytes) {
    static constexpr std::array<char32_t, 32> upper = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                                       0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        const char32_t scalar = byte >= 0x80 && byte < 0xA0 ? upper[byte - 0x80U] : byte;
        if (scalar == 0 && byte != 0) {
            return std::nullopt;
        }
        SlowUtf8::append(text, scalar);
    }
    return text;
}

// None for a lone surrogate or an odd number of bytes.
inline std::optional<std::vector<char32_t>> fromUtf16(std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    std::vector<char32_t> scalars;
    char32_t high = 0;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto byte = [&](std::size_t k) { return static_cast<char32_t>(static_cast<std::uint8_t>(bytes[i + k])); };
        const char32_t unit = bigEndian ? byte(0) << 8U | byte(1) : byte(1) << 8U | byte(0);
        const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
        if (isLow != (high != 0)) {
            return std::nullopt;
        }
        if (unit >= 0xD800 && unit <= 0xDBFF) {
            high = unit;
        } else {
            scalars.push_back(isLow ? 0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00) : unit);
            high = 0;
        }
    }
    return high != 0 ? std::nullopt : std::optional(scalars);
}

inline std::string decodeText(std::string_view bytes) {
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF") {
        return SlowUtf8::encoded(SlowUtf8::scalars(bytes.substr(3)));
    }
    if (bytes.substr(0, 2) == "\xFF\xFE" || bytes.substr(0, 2) == "\xFE\xFF") {
        auto scalars = fromUtf16(bytes, bytes[0] == '\xFE').value_or(std::vector<char32_t>());
        while (!scalars.empty() && scalars.front() == 0xFEFF) {
            scalars.erase(scalars.begin());
        }
        return SlowUtf8::encoded(scalars);
    }
    if (SlowUtf8::isValid(bytes)) {
        return std::string(bytes);
    }
    const auto decoded = fromCodePage1252(bytes);
    return decoded ? *decoded : SlowUtf8::encoded(SlowUtf8::scalars(bytes));
}

}  // namespace corvale::SlowCSV
