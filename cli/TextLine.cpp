#include "cli/TextLine.h"

#include <limits>

#include "CorvaleKit/text/Text.h"
#include "cli/DisplayText.h"

namespace corvale::Cli {

namespace {

// Select Graphic Rendition (ECMA-48, 8.3.117), the eight colours that every theme sets.
std::string_view escape(Ink ink) {
    switch (ink) {
        case Ink::plain:
            return "";
        case Ink::strong:
            return "\x1b[1m";
        case Ink::faint:
            return "\x1b[2m";
        case Ink::added:
            return "\x1b[32m";
        case Ink::removed:
            return "\x1b[31m";
        case Ink::changed:
            return "\x1b[33m";
    }
    return "";
}

}  // namespace

void TextLine::add(std::string_view printable, Ink ink) {
    const bool painted = m_style.colour && ink != Ink::plain && !printable.empty();
    if (painted) {
        m_target += escape(ink);
    }
    m_target += printable;
    if (painted) {
        m_target += "\x1b[0m";
    }
    m_used += Text::displayWidth(printable);
}

void TextLine::addFitting(std::string_view printable, Ink ink) {
    add(isLimited() ? DisplayText::shortened(printable, room()) : std::string(printable), ink);
}

void TextLine::addKey(std::string_view printable, std::size_t reserved, Ink ink) {
    constexpr std::size_t least = 4;
    const std::size_t width = room() > reserved + least ? room() - reserved : least;
    add(isLimited() ? DisplayText::shortenedInMiddle(printable, width) : std::string(printable), ink);
}

void TextLine::padTo(std::size_t column) {
    if (column > m_used) {
        m_target.append(column - m_used, ' ');
        m_used = column;
    }
}

std::size_t TextLine::room() const {
    if (!m_style.width) {
        return std::numeric_limits<std::size_t>::max() / 4;
    }
    return *m_style.width > m_used ? *m_style.width - m_used : 0;
}

}  // namespace corvale::Cli
