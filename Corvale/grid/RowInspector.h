#pragma once

#include <QWidget>

#include "Corvale/grid/GridColumns.h"
#include "Corvale/grid/KnownResult.h"

class QStackedLayout;

namespace corvale {

class AppModel;
class FieldList;
class GridPlaceholder;
class InspectorHead;
class Theme;

// The row-details pane: every cell of the selected row, before and after, as texts that can be selected and copied.
class RowInspector : public QWidget {
    Q_OBJECT

public:
    // Both outlive the pane.
    RowInspector(AppModel& model, Theme& theme, QWidget* parent);
    ~RowInspector() override;

    void refresh();
    const InspectorHead& head() const { return *m_head; }
    const FieldList& fields() const { return *m_fields; }
    // What is shown without a selected row.
    const GridPlaceholder& placeholder() const { return *m_placeholder; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeResult();
    void showSelection();
    void showRow(bool fromTop);
    bool hasRow() const;

    AppModel& m_model;
    Theme& m_theme;
    GridColumns m_columns;
    KnownResult m_measured;  // the result that the columns are of
    QStackedLayout* m_pages;
    GridPlaceholder* m_placeholder;
    InspectorHead* m_head;
    FieldList* m_fields;
};

}  // namespace corvale
