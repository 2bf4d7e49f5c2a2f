#include "Corvale/grid/GridTableInterface.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "Corvale/grid/DiffGrid.h"
#include "Corvale/grid/GridAccessibility.h"
#include "Corvale/grid/GridPartInterface.h"

namespace corvale {

namespace {

// Of lines, so that they and the header can be counted by an int.
constexpr std::int64_t mostLines = std::numeric_limits<int>::max() - 1;

QAccessibleInterface* interfaceFor(const QString& className, QObject* object) {
    auto* grid = className == QLatin1String("corvale::DiffGrid") ? qobject_cast<DiffGrid*>(object) : nullptr;
    return grid ? new GridTableInterface(*grid) : nullptr;
}

}  // namespace

void GridAccessibility::install() { QAccessible::installFactory(interfaceFor); }

int GridAccessibility::childOfLine(std::int64_t line) {
    return line >= 0 && line < mostLines ? static_cast<int>(line) + 1 : -1;
}

int GridAccessibility::columnOfCell(std::size_t cell) {
    return GridTableInterface::leadingColumns + static_cast<int>(cell);
}

GridTableInterface::GridTableInterface(DiffGrid& grid) : QAccessibleWidget(&grid, QAccessible::Table) {}

GridTableInterface::~GridTableInterface() { dropChildren(); }

DiffGrid& GridTableInterface::grid() const { return *static_cast<DiffGrid*>(widget()); }

void* GridTableInterface::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* GridTableInterface::at(int row, int column) const {
    if (row < headerRow || row >= rowCount() || column < wholeLine || column >= columnCount()) {
        return nullptr;
    }
    const auto found = m_children.constFind({row, column});
    if (found != m_children.constEnd()) {
        return QAccessible::accessibleInterface(*found);
    }
    auto* part = new GridPartInterface(grid(), row, column);
    m_children.insert({row, column}, QAccessible::registerAccessibleInterface(part));
    return part;
}

void GridTableInterface::dropChildren() const {
    for (const QAccessible::Id id : std::exchange(m_children, {})) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

void GridTableInterface::modelChange(QAccessibleTableModelChangeEvent*) { dropChildren(); }

int GridTableInterface::childCount() const { return 1 + rowCount(); }

QAccessibleInterface* GridTableInterface::child(int index) const { return at(index - 1, wholeLine); }

QAccessibleInterface* GridTableInterface::childAt(int x, int y) const {
    for (auto line = grid().linesOnScreen().begin; line < grid().linesOnScreen().end; ++line) {
        QAccessibleInterface* part = at(static_cast<int>(line), wholeLine);
        if (part && part->rect().contains(x, y)) {
            return part;
        }
    }
    QAccessibleInterface* header = at(headerRow, wholeLine);
    return header && header->rect().contains(x, y) ? header : nullptr;
}

int GridTableInterface::indexOfChild(const QAccessibleInterface* child) const {
    for (auto known = m_children.constBegin(); known != m_children.constEnd(); ++known) {
        if (QAccessible::accessibleInterface(*known) == child) {
            return known.key().second == wholeLine ? known.key().first + 1 : -1;
        }
    }
    return -1;
}

QAccessibleInterface* GridTableInterface::focusChild() const {
    const auto line = grid().selectedLine();
    return line && grid().hasFocus() ? child(GridAccessibility::childOfLine(*line)) : nullptr;
}

int GridTableInterface::columnCount() const {
    return leadingColumns + static_cast<int>(grid().contents().geometry.cells().size());
}

int GridTableInterface::rowCount() const { return static_cast<int>(std::min(grid().lineCount(), mostLines)); }

QString GridTableInterface::columnDescription(int column) const {
    QAccessibleInterface* header = at(headerRow, column);
    return header ? header->text(QAccessible::Name) : QString();
}

QString GridTableInterface::rowDescription(int row) const {
    QAccessibleInterface* line = at(row, wholeLine);
    return line ? line->text(QAccessible::Name) : QString();
}

int GridTableInterface::selectedRowCount() const { return grid().selectedLine() ? 1 : 0; }

QList<int> GridTableInterface::selectedRows() const {
    const auto line = grid().selectedLine();
    return line ? QList<int>{static_cast<int>(*line)} : QList<int>();
}

int GridTableInterface::selectedCellCount() const { return selectedRowCount() * columnCount(); }

QList<QAccessibleInterface*> GridTableInterface::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (int column = 0; column < columnCount(); ++column) {
            cells.append(at(row, column));
        }
    }
    return cells;
}

bool GridTableInterface::isRowSelected(int row) const { return grid().selectedLine() == row; }

bool GridTableInterface::selectRow(int row) {
    grid().selectLine(row);
    return isRowSelected(row);
}

}  // namespace corvale
