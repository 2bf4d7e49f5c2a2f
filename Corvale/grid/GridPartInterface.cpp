#include "Corvale/grid/GridPartInterface.h"

#include <QStringList>
#include <QWindow>

#include "Corvale/grid/DiffGrid.h"
#include "Corvale/grid/GridHeader.h"
#include "Corvale/grid/GridTableInterface.h"
#include "Corvale/grid/RowTexts.h"

namespace corvale {

namespace {

using Table = GridTableInterface;
using CellSide = GridGeometry::CellSide;

// In UTF-16 units: a reader takes a minute for it, and after a lost quote the rest of a file is one value.
constexpr qsizetype longestValue = 1000;

std::size_t cellOf(int column) { return static_cast<std::size_t>(column - Table::leadingColumns); }

}  // namespace

GridPartInterface::GridPartInterface(DiffGrid& grid, int row, int column)
    : m_grid(&grid), m_row(row), m_column(column) {}

bool GridPartInterface::isHeader() const { return m_row == Table::headerRow; }

bool GridPartInterface::isLine() const { return m_column == Table::wholeLine; }

bool GridPartInterface::isValid() const {
    const Table* table = tableInterface();
    return table && m_row < table->rowCount() && m_column < table->columnCount();
}

GridTableInterface* GridPartInterface::tableInterface() const {
    return m_grid ? dynamic_cast<Table*>(QAccessible::queryAccessibleInterface(m_grid)) : nullptr;
}

QAccessibleInterface* GridPartInterface::table() const { return tableInterface(); }

QWindow* GridPartInterface::window() const { return m_grid ? m_grid->window()->windowHandle() : nullptr; }

QAccessibleInterface* GridPartInterface::parent() const {
    Table* table = tableInterface();
    return table && !isLine() ? table->at(m_row, Table::wholeLine) : table;
}

int GridPartInterface::childCount() const { return isLine() && isValid() ? tableInterface()->columnCount() : 0; }

QAccessibleInterface* GridPartInterface::child(int index) const {
    return index >= 0 && index < childCount() ? tableInterface()->at(m_row, index) : nullptr;
}

QAccessibleInterface* GridPartInterface::childAt(int x, int y) const {
    for (int column = 0; column < childCount(); ++column) {
        // A passing one: those that a reader has asked for stay until the model changes.
        if (GridPartInterface(*m_grid, m_row, column).rect().contains(x, y)) {
            return child(column);
        }
    }
    return nullptr;
}

int GridPartInterface::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const part = dynamic_cast<const GridPartInterface*>(child);
    const bool isOurs = part && isLine() && !part->isLine() && part->m_grid == m_grid && part->m_row == m_row;
    return isOurs ? part->m_column : -1;
}

QString GridPartInterface::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name || !isValid()) {
        return {};
    }
    if (isHeader()) {
        return isLine() ? QString() : headerText();
    }
    const GridRow line = m_grid->row(m_row);
    return isLine() ? RowTexts::spoken(line.result(), line.row()) : cellText();
}

QString GridPartInterface::headerText() const {
    if (m_column == Table::numbersColumn) {
        return GridHeader::tr("Row");
    }
    if (m_column == Table::statusColumn) {
        return GridHeader::tr("Status");
    }
    QString title = m_grid->header().title(cellOf(m_column));
    switch (m_grid->contents().geometry.cells()[cellOf(m_column)].side) {
        case CellSide::before:
            return RowTexts::sideName(DuplicateKey::Side::before) + u' ' + title;
        case CellSide::after:
            return RowTexts::sideName(DuplicateKey::Side::after) + u' ' + title;
        case CellSide::both:
            break;
    }
    return title;
}

QString GridPartInterface::cellText() const {
    const GridRow line = m_grid->row(m_row);
    if (m_column == Table::numbersColumn) {
        return RowTexts::labelledNumbers(line.result(), line.row());
    }
    if (m_column == Table::statusColumn) {
        return RowTexts::statusWord(line.row().status);
    }
    return RowTexts::cell(line.cell(cellOf(m_column)), longestValue);
}

QRect GridPartInterface::areaInGrid() const {
    QRect area = isHeader() ? QRect(0, -m_grid->headerHeight(), m_grid->viewport()->width(), m_grid->headerHeight())
                            : m_grid->lineArea(m_row);
    if (m_column == Table::numbersColumn) {
        area.setWidth(GridGeometry::numbersWidth);
    } else if (m_column == Table::statusColumn) {
        area.setLeft(GridGeometry::numbersWidth);
        area.setRight(GridGeometry::leadingWidth - 1);
    } else if (!isLine()) {
        const QRect cell = m_grid->cellArea(0, cellOf(m_column));
        area.setLeft(cell.left());
        area.setRight(cell.right());
    }
    return area;
}

QRect GridPartInterface::rect() const {
    if (!isValid()) {
        return {};
    }
    const QRect area = areaInGrid();
    return {m_grid->viewport()->mapToGlobal(area.topLeft()), area.size()};
}

QAccessible::Role GridPartInterface::role() const {
    if (isLine()) {
        return QAccessible::Row;
    }
    return isHeader() ? QAccessible::ColumnHeader : QAccessible::Cell;
}

bool GridPartInterface::isSelected() const { return isValid() && !isHeader() && m_grid->selectedLine() == m_row; }

QAccessible::State GridPartInterface::state() const {
    QAccessible::State state;
    state.readOnly = true;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.offscreen = !areaInGrid().intersects(m_grid->viewport()->rect()) && !isHeader();
    if (!isHeader()) {
        state.selectable = true;
        state.selected = isSelected();
        state.focusable = isLine();
        state.focused = isLine() && isSelected() && m_grid->hasFocus();
        state.active = state.focused;
    }
    return state;
}

void* GridPartInterface::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface && !isLine()) {
        return static_cast<QAccessibleTableCellInterface*>(this);
    }
    if (type == QAccessible::ActionInterface && !isHeader()) {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    return nullptr;
}

QList<QAccessibleInterface*> GridPartInterface::columnHeaderCells() const {
    Table* table = tableInterface();
    return table && !isHeader() ? QList<QAccessibleInterface*>{table->at(Table::headerRow, m_column)}
                                : QList<QAccessibleInterface*>();
}

QStringList GridPartInterface::actionNames() const { return {pressAction()}; }

void GridPartInterface::doAction(const QString& action) {
    if (isValid() && !isHeader() && action == pressAction()) {
        m_grid->selectLine(m_row);
    }
}

}  // namespace corvale
