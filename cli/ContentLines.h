#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "cli/TextLine.h"

namespace corvale::Cli {

// What an added or removed row holds, as "name: value" pieces: on one line where lines are not limited, else on as few
// lines as they fit on, and never on more than three.
class ContentLines {
public:
    // Both outlive this object. Values are written in `ink`.
    ContentLines(std::string& target, const TextStyle& style, Ink ink) : m_ink(ink), m_line(target, style) {}

    // False when there is no room for this piece, nor for any more. Both texts are printable.
    bool add(std::string_view name, std::string value);
    void end();

private:
    bool makeRoom(std::size_t width);

    Ink m_ink;
    TextLine m_line;
    std::size_t m_lineCount = 0;
};

}  // namespace corvale::Cli
