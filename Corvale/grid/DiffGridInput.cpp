#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

#include "Corvale/grid/BriefNote.h"
#include "Corvale/grid/CellText.h"
#include "Corvale/grid/DiffGrid.h"
#include "Corvale/grid/GridAccessibility.h"
#include "Corvale/grid/RowTexts.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Metrics.h"

namespace corvale {

namespace {

using Place = GridGeometry::Place;
using RowSide = DuplicateKey::Side;

// Of a value in a tooltip. Where there are two, both have to show, with a few words between.
qsizetype longestValue(const GridCell& cell) {
    constexpr qsizetype roomForWords = 40;
    const bool isOne = cell.kind == GridCell::Kind::plain || cell.side != GridGeometry::CellSide::both;
    return isOne ? CellText::longestToolTip : (CellText::longestToolTip - roomForWords) / 2;
}

}  // namespace

struct DiffGrid::Spot {
    std::optional<std::int64_t> line;
    std::optional<std::size_t> tabTarget;  // of a mark that leads to a changed cell: that cell
    std::optional<std::size_t> cell;
};

std::optional<std::int64_t> DiffGrid::lineAt(int y) const {
    if (y < 0 || y >= viewport()->height()) {
        return std::nullopt;
    }
    const std::int64_t line = (std::int64_t{verticalScrollBar()->value()} + y) / LinePainter::lineHeight;
    return line < lineCount() ? std::optional(line) : std::nullopt;
}

DiffGrid::Spot DiffGrid::spotAt(const QPoint& position) const {
    Spot spot;
    spot.line = lineAt(position.y());
    if (!spot.line) {
        return spot;
    }
    const int top = lineArea(*spot.line).top();
    const auto outOfView = m_contents.geometry.outOfView(row(*spot.line).row().changes, scroll());
    for (const auto& [side, target] :
         {std::pair(Place::leftOfIt, outOfView.left), std::pair(Place::rightOfIt, outOfView.right)}) {
        if (target && LinePainter::tabArea(m_contents.geometry, side, top, scroll()).contains(position)) {
            spot.tabTarget = target;
            return spot;
        }
    }
    spot.cell = m_contents.geometry.cellAt(position.x(), scroll());
    return spot;
}

std::optional<std::int64_t> DiffGrid::pressAt(const QPoint& position) {
    const Spot spot = spotAt(position);
    if (spot.tabTarget) {
        scrollToCell(*spot.tabTarget);
        return std::nullopt;
    }
    return spot.line;
}

void DiffGrid::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    if (const auto line = pressAt(event->pos())) {
        selectLine(*line);
    }
}

void DiffGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    if (pressAt(event->pos())) {
        openDetails();
    }
}

void DiffGrid::mouseMoveEvent(QMouseEvent* event) { setHoveredLine(lineAt(event->pos().y())); }

void DiffGrid::setHoveredLine(std::optional<std::int64_t> line) {
    if (line && !viewport()->underMouse()) {
        line.reset();
    }
    if (m_hoveredLine != line) {
        updateLine(std::exchange(m_hoveredLine, line));
        updateLine(line);
    }
}

void DiffGrid::updateLine(std::optional<std::int64_t> line) {
    if (line) {
        viewport()->update(lineArea(*line));
    }
}

bool DiffGrid::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        setHoveredLine(std::nullopt);
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), viewport());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

QString DiffGrid::toolTipAt(const QPoint& position) const {
    const Spot spot = spotAt(position);
    if (!spot.line) {
        return {};
    }
    if (spot.tabTarget) {
        return tr("Show the changed cell");
    }
    if (spot.cell) {
        return cellToolTip(*spot.line, *spot.cell);
    }
    const GridRow gridRow = row(*spot.line);
    if (position.x() < GridGeometry::numbersWidth) {
        return RowTexts::labelledNumber(
            gridRow.result(), gridRow.row(), position.x() < Metrics::gridGutter ? RowSide::before : RowSide::after);
    }
    return {};
}

QString DiffGrid::cellToolTip(std::int64_t line, std::size_t cell) const {
    const GridRow gridRow = row(line);
    const GridCell content = gridRow.cell(cell);
    const int width = m_contents.geometry.cells()[cell].width();
    const bool showsWhole = m_contents.geometry.shownWidth(cell, scroll()) == width &&
                            m_painter.cells().fits(width, content, m_painter.cellStyle(gridRow, cell));
    return showsWhole ? QString() : CellText::toolTip(RowTexts::cell(content, longestValue(content)));
}

bool DiffGrid::event(QEvent* event) {
    // Here the key for copying means the selected row, whatever command of the window has it too.
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        event->accept();
        return true;
    }
    return QAbstractScrollArea::event(event);
}

void DiffGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copySelectedRow();
        return;
    }
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            openDetails();
            return;
        case Qt::Key_Left:
            horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
            return;
        case Qt::Key_Right:
            horizontalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
            return;
        case Qt::Key_F8:
            if (event->modifiers() & Qt::ShiftModifier) {
                showPreviousChange();
            } else {
                showNextChange();
            }
            return;
        default:
            break;
    }
    if (!moveSelection(event->key())) {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

bool DiffGrid::moveSelection(int key) {
    const std::int64_t page = std::max(1, viewport()->height() / LinePainter::lineHeight - 1);
    switch (key) {
        case Qt::Key_Up:
            m_model.selectPrevious();
            return true;
        case Qt::Key_Down:
            m_model.selectNext();
            return true;
        case Qt::Key_Home:
            selectLine(0);
            return true;
        case Qt::Key_End:
            selectLine(lineCount() - 1);
            return true;
        case Qt::Key_PageUp:
            moveSelectionBy(-page);
            return true;
        case Qt::Key_PageDown:
            moveSelectionBy(page);
            return true;
        default:
            return false;
    }
}

void DiffGrid::moveSelectionBy(std::int64_t lines) {
    const std::int64_t from = selectedLine().value_or(linesOnScreen().begin);
    selectLine(std::clamp<std::int64_t>(from + lines, 0, std::max<std::int64_t>(lineCount() - 1, 0)));
}

void DiffGrid::selectLine(std::int64_t line) {
    if (line >= 0 && line < lineCount()) {
        m_model.select(m_model.visible()[static_cast<std::size_t>(line)]);
    }
}

void DiffGrid::openDetails() {
    if (!m_model.showInspector()) {
        m_model.toggleInspector();
    }
}

void DiffGrid::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
    announceSelection();
}

void DiffGrid::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void DiffGrid::copySelectedRow() {
    const auto selected = m_model.selectedRow();
    if (m_model.result() && selected) {
        const DiffResult& result = *m_model.result();
        QGuiApplication::clipboard()->setText(
            RowTexts::copied(result, result.rows[static_cast<std::size_t>(*selected)]));
    }
}

ChangeWalk::Start DiffGrid::changeStart() const {
    const auto selected = m_model.selectedRow();
    if (!selected) {
        return {};
    }
    if (const auto line = selectedLine()) {
        return {line, m_currentChange ? std::optional(m_currentChange->change) : std::nullopt};
    }
    // The selected row is not listed: from where it would stand.
    const auto& visible = m_model.visible();
    return {std::lower_bound(visible.begin(), visible.end(), *selected) - visible.begin(), std::nullopt};
}

void DiffGrid::showNextChange() {
    if (m_model.result()) {
        goToChange(ChangeWalk::next(*m_model.result(), m_model.visible(), changeStart()),
                   tr("Started again from the first change"));
    }
}

void DiffGrid::showPreviousChange() {
    if (m_model.result()) {
        goToChange(ChangeWalk::previous(*m_model.result(), m_model.visible(), changeStart()),
                   tr("Started again from the last change"));
    }
}

void DiffGrid::goToChange(const std::optional<ChangeWalk::Step>& step, const QString& noteWhenWrapped) {
    if (!step) {
        m_note->say(tr("No changed cells in this list"));
        return;
    }
    selectLine(step->stop.line);
    m_currentChange = {m_model.visible()[static_cast<std::size_t>(step->stop.line)], step->stop.change};
    const auto column = row(step->stop.line).row().changes[step->stop.change].column;
    ensureLineOnScreen(step->stop.line);
    if (const auto cell = m_contents.geometry.cellOfColumn(column)) {
        scrollToCell(*cell);
        announceCell(step->stop.line, *cell);
    }
    viewport()->update();
    if (step->wrapped) {
        m_note->say(noteWhenWrapped);
    }
}

void DiffGrid::announceCell(std::int64_t line, std::size_t cell) {
    if (!QAccessible::isActive()) {
        return;
    }
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(this);
    QAccessibleInterface* part = table->tableInterface()->cellAt(GridAccessibility::childOfLine(line) - 1,
                                                                 GridAccessibility::columnOfCell(cell));
    if (part) {
        QAccessibleEvent event(part, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void DiffGrid::announceSelection() {
    const auto line = selectedLine();
    if (!QAccessible::isActive() || !hasFocus() || !line) {
        return;
    }
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(GridAccessibility::childOfLine(*line));
    QAccessible::updateAccessibility(&event);
}

}  // namespace corvale
