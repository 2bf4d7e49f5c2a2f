#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "cli/Terminal.h"

namespace corvale::Cli {

// What a piece of text means; colours follow from it.
enum class Ink : std::uint8_t { plain, strong, faint, added, removed, changed };

// Stands before what belongs to the line above.
inline constexpr std::string_view blockIndent = "    ";

// Writes lines of a text for people, one after the other, and knows how much room is left on the current one.
class TextLine {
public:
    // Both outlive the line.
    TextLine(std::string& target, const TextStyle& style) : m_target(target), m_style(style) {}

    // `printable` holds no control characters.
    void add(std::string_view printable, Ink ink = Ink::plain);
    // The same, cut to the room left.
    void addFitting(std::string_view printable, Ink ink = Ink::plain);
    // A row's key, cut in the middle to leave `reserved` columns free, though not below four of its own.
    void addKey(std::string_view printable, std::size_t reserved, Ink ink);
    // Spaces up to that column, counted from 0.
    void padTo(std::size_t column);
    // What is added next begins another line.
    void end() {
        m_target += '\n';
        m_used = 0;
    }

    bool isLimited() const { return m_style.width.has_value(); }
    // Terminal columns left; more than any text has when lines are not limited.
    std::size_t room() const;

private:
    std::string& m_target;
    const TextStyle& m_style;
    std::size_t m_used = 0;
};

}  // namespace corvale::Cli
