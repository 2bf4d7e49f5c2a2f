#include "Corvale/grid/RowInspector.h"

#include <QEvent>
#include <QPainter>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "Corvale/grid/FieldList.h"
#include "Corvale/grid/GridPlaceholder.h"
#include "Corvale/grid/InspectorHead.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"

namespace corvale {

namespace {

constexpr int usualHeight = 480;

}  // namespace

RowInspector::RowInspector(AppModel& model, Theme& theme, QWidget* parent)
    : QWidget(parent), m_model(model), m_theme(theme), m_pages(new QStackedLayout(this)) {
    auto* details = new QWidget(this);
    // Before is at the left of After, as in the grid.
    details->setLayoutDirection(Qt::LeftToRight);
    m_head = new InspectorHead(model, theme, details);
    m_fields = new FieldList(model, theme, details);
    auto* column = new QVBoxLayout(details);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_head);
    column->addWidget(m_fields, 1);
    m_placeholder = new GridPlaceholder(GridPlaceholder::Subject::noRowSelected, theme, this);
    m_pages->addWidget(m_placeholder);
    m_pages->addWidget(details);
    setMinimumWidth(Metrics::detailsWidthMin);
    setMaximumWidth(Metrics::detailsWidthMax);
    setAccessibleName(tr("Row Details"));
    connect(&model, &AppModel::resultChanged, this, &RowInspector::refresh);
    connect(&model, &AppModel::selectedRowChanged, this, &RowInspector::showSelection);
    connect(&theme, &Theme::changed, this, &RowInspector::refresh);
    connect(m_fields, &FieldList::fieldWidthChanged, m_head, [this] {
        m_head->setFieldWidth(m_fields->viewport()->width());
    });
    refresh();
}

RowInspector::~RowInspector() = default;

QSize RowInspector::sizeHint() const { return {Metrics::detailsWidth, usualHeight}; }

bool RowInspector::hasRow() const { return m_model.result() && m_model.selectedRow(); }

void RowInspector::refresh() {
    takeResult();
    showRow(false);
    update();
}

void RowInspector::showSelection() {
    takeResult();
    showRow(true);
}

void RowInspector::takeResult() {
    const auto& result = m_model.result();
    if (m_measured.take(result)) {
        m_columns = result ? GridColumns(*result) : GridColumns();
    }
}

void RowInspector::showRow(bool fromTop) {
    if (hasRow()) {
        m_head->refresh();
    }
    m_fields->refresh(m_columns, fromTop);
    m_pages->setCurrentIndex(hasRow() ? 1 : 0);
}

void RowInspector::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.palette().surface);
}

void RowInspector::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        refresh();
    }
}

}  // namespace corvale
