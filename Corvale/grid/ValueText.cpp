#include "Corvale/grid/ValueText.h"

#include <QFontMetricsF>
#include <QMimeData>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "Corvale/grid/CellText.h"
#include "Corvale/grid/ShownStretch.h"

namespace corvale {

namespace {

constexpr std::size_t longestMeasured = 300;  // in bytes
constexpr Qt::TextInteractionFlags selectable = Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;
constexpr qreal lineSpacing = 17.0 / 13.0;  // of the font's size

// Qt reads a word to its end for each line that it fills, so that one of thousands of characters, such as a picture in
// text form, would take seconds.
constexpr int longestWord = 200;

bool hasLongWord(const QString& text) {
    int length = 0;
    return std::any_of(text.begin(), text.end(), [&length](QChar character) {
        length = character.isSpace() ? 0 : length + 1;
        return length > longestWord;
    });
}

QTextOption wrapping() {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    // A text reads in its own direction, yet begins at the edge of its column.
    option.setTextDirection(Qt::LayoutDirectionAuto);
    return option;
}

int lineCount(const QFont& font, const QString& text, int width) {
    QString paragraphs = text;
    paragraphs.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(paragraphs, font);
    layout.setTextOption(wrapping());
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
    }
    layout.endLayout();
    return std::max(1, layout.lineCount());
}

}  // namespace

ValueText::ValueText(QWidget* parent) : QTextEdit(parent) {
    setReadOnly(true);
    setTextInteractionFlags(selectable);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    setProperty("focusRing", true);
    setUndoRedoEnabled(false);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    document()->setDefaultTextOption(wrapping());
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
}

int ValueText::lineHeight(const QFont& font) {
    const QFontMetricsF metrics(font);
    return qRound(std::max(QFontInfo(font).pixelSize() * lineSpacing, metrics.height()));
}

int ValueText::estimatedHeight(const QFont& font, std::string_view text, int width) {
    const int height = lineHeight(font);
    const QFontMetricsF metrics(font);
    if (text.size() > longestMeasured) {
        const std::size_t shown = std::min(text.size(), ShownStretch::longest);
        const qreal lines = static_cast<qreal>(shown) * metrics.averageCharWidth() / std::max(width, 1);
        return height * static_cast<int>(std::ceil(lines));
    }
    const QString whole = CellText::whole(text);
    if (!whole.contains(u'\n') && metrics.horizontalAdvance(whole) <= width) {
        return height;
    }
    return height * lineCount(font, whole, width);
}

void ValueText::setValue(const FieldValue& value, const Look& look) {
    m_value = value;
    // There is nothing in a note to copy: the key for it leaves the clipboard alone.
    setTextInteractionFlags(value.isNote ? Qt::TextInteractionFlags(Qt::NoTextInteraction) : selectable);
    QTextCharFormat format;
    format.setForeground(look.color);
    format.setFontWeight(look.isBold ? QFont::Bold : QFont::Normal);
    format.setFontStrikeOut(look.isStruck);
    format.setFontItalic(look.isItalic);
    if (look.isUnderlined) {
        format.setUnderlineStyle(QTextCharFormat::DotLine);
        format.setUnderlineColor(look.color);
    }
    QTextBlockFormat block;
    block.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    block.setLineHeight(lineHeight(font()), QTextBlockFormat::FixedHeight);
    clear();
    setWordWrapMode(hasLongWord(value.text) ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextCursor cursor(document());
    cursor.setBlockFormat(block);
    cursor.insertText(value.text, format);
    if (value.markBegin < value.markEnd) {
        cursor.setPosition(value.markBegin);
        cursor.setPosition(value.markEnd, QTextCursor::KeepAnchor);
        QTextCharFormat mark;
        mark.setBackground(look.markFill);
        cursor.mergeCharFormat(mark);
    }
    QTextCharFormat note;
    note.setForeground(look.noteColor);
    note.setFontItalic(true);
    const auto end = static_cast<int>(value.text.size());
    setFormat(0, value.noteBefore, note);
    setFormat(end - value.noteBehind, end, note);
    moveCursor(QTextCursor::Start);
}

void ValueText::setFormat(int begin, int end, const QTextCharFormat& format) {
    QTextCursor cursor(document());
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.setCharFormat(format);
}

int ValueText::heightIn(int width) {
    document()->setTextWidth(width);
    int height = qRound(document()->size().height());
    if (document()->textWidth() != width) {
        // The first layout makes the scroll bars look again, and them lay out in the width that the widget has now.
        document()->setTextWidth(width);
        height = qRound(document()->size().height());
    }
    return height;
}

QMimeData* ValueText::createMimeDataFromSelection() const {
    auto* selected = new QMimeData;
    const int begin = textCursor().selectionStart();
    const int end = textCursor().selectionEnd();
    const auto& origins = m_value.origins;
    if (begin >= end) {
        return selected;
    }
    if (origins.empty()) {
        selected->setText(m_value.original.mid(begin, end - begin));
        return selected;
    }
    const int from = origins[static_cast<std::size_t>(begin)];
    // All that the last unit stands for, which may be two.
    const auto behind = std::upper_bound(origins.begin(), origins.end(), origins[static_cast<std::size_t>(end) - 1]);
    const int to = behind == origins.end() ? static_cast<int>(m_value.original.size()) : *behind;
    selected->setText(m_value.original.mid(from, to - from));
    return selected;
}

}  // namespace corvale
