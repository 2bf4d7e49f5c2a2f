#pragma once

#include <QAccessibleInterface>
#include <QPointer>

namespace corvale {

class DiffGrid;
class GridTableInterface;

// A line of a GridTableInterface, its row of headers, or one cell of either; told apart by row and column, which are
// those of the table.
class GridPartInterface : public QAccessibleInterface,
                          public QAccessibleTableCellInterface,
                          public QAccessibleActionInterface {
public:
    GridPartInterface(DiffGrid& grid, int row, int column);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_column; }
    int rowIndex() const override { return m_row; }
    bool isSelected() const override;
    QAccessibleInterface* table() const override;

    QStringList actionNames() const override;
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    bool isHeader() const;
    bool isLine() const;
    GridTableInterface* tableInterface() const;
    QString headerText() const;
    QString cellText() const;
    QRect areaInGrid() const;

    QPointer<DiffGrid> m_grid;
    int m_row;
    int m_column;
};

}  // namespace corvale
