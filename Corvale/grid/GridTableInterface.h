#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <utility>

namespace corvale {

class DiffGrid;

// The table that a DiffGrid is to assistive technology. Row -1 is that of the headers, column -1 a line as a whole.
class GridTableInterface : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    // Columns before the first that has cells of the result.
    static constexpr int numbersColumn = 0;
    static constexpr int statusColumn = 1;
    static constexpr int leadingColumns = 2;
    static constexpr int headerRow = -1;
    static constexpr int wholeLine = -1;

    explicit GridTableInterface(DiffGrid& grid);
    ~GridTableInterface() override;

    DiffGrid& grid() const;
    // The line, header row or cell there; owned by Qt. Null when there is none.
    QAccessibleInterface* at(int row, int column) const;

    void* interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override { return at(row, column); }
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    void dropChildren() const;

    mutable QHash<std::pair<int, int>, QAccessible::Id> m_children;
};

}  // namespace corvale
