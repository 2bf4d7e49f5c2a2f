#include "cli/ChangeLine.h"

#include <algorithm>

#include "CorvaleKit/text/Text.h"
#include "cli/DisplayText.h"

namespace corvale::Cli {

namespace {

constexpr std::string_view arrow = " → ";
constexpr std::size_t arrowWidth = 3;
// Columns of a value, cut shorter than which it tells nothing.
constexpr std::size_t leastShown = 8;

std::string shownCell(std::string_view cell, ChangeKind kind) {
    if (kind == ChangeKind::whitespace) {
        return "“" + DisplayText::printable(cell) + "”";
    }
    return cell.empty() ? "(empty)" : DisplayText::printable(cell);
}

std::string noteOn(ChangeKind kind) {
    switch (kind) {
        case ChangeKind::value:
            return {};
        case ChangeKind::numberFormat:
            return "  (number format)";
        case ChangeKind::letterCase:
            return "  (letter case)";
        case ChangeKind::whitespace:
            return "  (spaces)";
    }
    return {};
}

// How many columns each value gets of `room`: what it needs, and half the room when both need more.
struct Share {
    std::size_t before = 0;
    std::size_t after = 0;
};

Share shared(std::size_t beforeNeeds, std::size_t afterNeeds, std::size_t room) {
    const std::size_t half = room / 2;
    if (beforeNeeds <= half) {
        return {beforeNeeds, room - beforeNeeds};
    }
    if (afterNeeds <= room - half) {
        return {room - afterNeeds, afterNeeds};
    }
    return {half, room - half};
}

}  // namespace

ShownChange::ShownChange(std::string_view beforeCell, std::string_view afterCell, ChangeKind kind)
    : before(shownCell(beforeCell, kind)), after(shownCell(afterCell, kind)), note(noteOn(kind)) {}

void addChange(TextLine& line, const ShownChange& change, std::size_t beforeWidth) {
    const std::size_t before = Text::displayWidth(change.before);
    const std::size_t after = Text::displayWidth(change.after);
    // The note gives way when it would leave the values no room.
    const std::size_t least = std::min(before, leastShown) + arrowWidth + std::min(after, leastShown);
    const std::string_view note = least + change.note.size() <= line.room() ? std::string_view(change.note) : "";
    const std::size_t fixed = arrowWidth + note.size();
    const std::size_t room = line.room() > fixed ? line.room() - fixed : 2;
    if (before + after <= room) {
        line.add(change.before, Ink::removed);
        const std::size_t padding = std::max(before, beforeWidth) - before;
        line.add(std::string(before + padding + after <= room ? padding : 0, ' '));
        line.add(arrow, Ink::faint);
        line.add(change.after, Ink::added);
    } else {
        const Share share = shared(before, after, room);
        const auto pair = DisplayText::shortenedPair(change.before, change.after, share.before, share.after);
        line.add(pair.before, Ink::removed);
        line.add(arrow, Ink::faint);
        line.add(pair.after, Ink::added);
    }
    line.add(note, Ink::faint);
}

}  // namespace corvale::Cli
