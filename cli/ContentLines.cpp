#include "cli/ContentLines.h"

#include "CorvaleKit/text/Text.h"
#include "cli/DisplayText.h"

namespace corvale::Cli {

namespace {

constexpr std::string_view separator = " · ";
constexpr std::size_t separatorWidth = 3;
constexpr std::size_t mostLines = 3;
// No cell takes a line for itself.
constexpr std::size_t widestValue = 40;

}  // namespace

// Stands the line where a piece of that width goes next; false when all lines are used up.
bool ContentLines::makeRoom(std::size_t width) {
    if (m_lineCount == 0) {
        m_line.add(blockIndent);
        m_lineCount = 1;
        return true;
    }
    // Room for the ellipsis that ends the last line when more is to come.
    const std::size_t reserve = m_lineCount == mostLines ? 2 : 0;
    if (m_line.room() >= separatorWidth + width + reserve) {
        m_line.add(separator, Ink::faint);
        return true;
    }
    if (m_lineCount == mostLines) {
        m_line.addFitting(" …", Ink::faint);
        return false;
    }
    m_line.end();
    m_line.add(blockIndent);
    ++m_lineCount;
    return true;
}

bool ContentLines::add(std::string_view name, std::string value) {
    if (m_line.isLimited()) {
        value = DisplayText::shortened(value, widestValue);
    }
    const std::string label = std::string(name) + ": ";
    if (!makeRoom(Text::displayWidth(label) + Text::displayWidth(value))) {
        return false;
    }
    m_line.addFitting(label, Ink::faint);
    m_line.addFitting(value, m_ink);
    return true;
}

void ContentLines::end() {
    if (m_lineCount > 0) {
        m_line.end();
    }
}

}  // namespace corvale::Cli
