#include "Corvale/grid/OverviewStrip.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <memory>

#include "Corvale/grid/DiffGrid.h"
#include "Corvale/grid/GridDrawing.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Shapes.h"
#include "Corvale/style/Theme.h"

namespace corvale {

namespace {

constexpr std::int64_t mostCountedAtOnce = 100000;
constexpr int edgeWidth = 1;
constexpr int laneLeft = 2;
constexpr int laneStep = 5;
constexpr int laneWidth = 4;
constexpr double leastFrame = 14;
constexpr double selectionHeight = 3;
constexpr qreal frameRadius = 2;
constexpr qreal frameFill = 0.12;
constexpr qreal frameLine = 0.6;

QColor withAlpha(QColor color, qreal alpha) {
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

const QColor& laneColor(const Palette& palette, Overview::Lane lane) {
    switch (lane) {
        case Overview::Lane::removed:
            return palette.removed.mark;
        case Overview::Lane::changed:
            return palette.changed.mark;
        case Overview::Lane::added:
            break;
    }
    return palette.added.mark;
}

}  // namespace

OverviewStrip::OverviewStrip(AppModel& model, DiffGrid& grid, Theme& theme, Platform& platform, QWidget* parent)
    : QWidget(parent), m_model(model), m_grid(grid), m_theme(theme), m_jobs(platform) {
    setFixedWidth(Metrics::overviewWidth);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Overview of all changes"));
    connect(&model, &AppModel::resultChanged, this, &OverviewStrip::refresh);
    connect(&model, &AppModel::selectedRowChanged, this, qOverload<>(&QWidget::update));
    connect(&grid, &DiffGrid::viewMoved, this, qOverload<>(&QWidget::update));
    connect(&theme, &Theme::changed, this, [this] {
        m_marks = {};
        update();
    });
    refresh();
}

OverviewStrip::~OverviewStrip() = default;

void OverviewStrip::refresh() {
    const auto& result = m_model.result();
    if (m_counted.take(result)) {
        count();
    }
    update();
}

void OverviewStrip::count() {
    const auto& result = m_model.result();
    m_counts = {};
    m_marks = {};
    if (!result) {
        return;
    }
    if (static_cast<std::int64_t>(result->rows.size()) <= mostCountedAtOnce) {
        m_counts = Overview::count(result->rows);
        return;
    }
    m_jobs.run([rows = result->rows] { return Overview::count(rows); },
               [this, of = std::weak_ptr(result)](Outcome<Overview::Counts>& outcome) {
                   if (m_counted.is(of) && outcome.value) {
                       m_counts = std::move(*outcome.value);
                       m_marks = {};
                       update();
                   }
               });
}

int OverviewStrip::marksTop() const { return m_grid.headerHeight(); }

int OverviewStrip::marksHeight() const { return std::max(0, height() - marksTop()); }

std::optional<OverviewStrip::Span> OverviewStrip::frame() const {
    const auto lines = m_grid.linesOnScreen();
    if (!m_model.result() || lines.begin >= lines.end || m_grid.verticalScrollBar()->maximum() == 0) {
        return std::nullopt;
    }
    const auto rows = static_cast<std::int64_t>(m_model.result()->rows.size());
    const std::int64_t first = m_model.visible()[static_cast<std::size_t>(lines.begin)];
    const std::int64_t last = m_model.visible()[static_cast<std::size_t>(lines.end - 1)];
    const double top = Overview::topOfRow(first, rows, marksHeight());
    const double bottom = Overview::topOfRow(last + 1, rows, marksHeight());
    const double shown = std::min<double>(std::max(bottom - top, leastFrame), marksHeight());
    const double middle = (top + bottom) / 2;
    return Span{marksTop() + std::clamp(middle - shown / 2, 0.0, marksHeight() - shown), shown};
}

std::optional<double> OverviewStrip::selectionLine() const {
    if (!m_model.result() || !m_model.selectedRow()) {
        return std::nullopt;
    }
    const auto rows = static_cast<std::int64_t>(m_model.result()->rows.size());
    const std::int64_t row = *m_model.selectedRow();
    return marksTop() +
           (Overview::topOfRow(row, rows, marksHeight()) + Overview::topOfRow(row + 1, rows, marksHeight())) / 2;
}

void OverviewStrip::paintEvent(QPaintEvent*) {
    const Palette& palette = m_theme.palette();
    QPainter painter(this);
    painter.fillRect(rect(), palette.surface2);
    painter.fillRect(0, 0, edgeWidth, height(), palette.border);
    painter.fillRect(0, marksTop() - 1, width(), 1, palette.border);
    if (!m_model.result()) {
        return;
    }
    painter.drawPixmap(0, marksTop(), marksPicture());
    if (const auto span = frame()) {
        const QRectF area(edgeWidth, span->top, width() - edgeWidth, span->height);
        Shapes::box(
            painter, area, frameRadius, withAlpha(palette.text2, frameFill), withAlpha(palette.text2, frameLine));
    }
    if (const auto line = selectionLine()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(QRectF(edgeWidth, *line - selectionHeight / 2, width() - edgeWidth, selectionHeight),
                         palette.accent);
    }
}

const QPixmap& OverviewStrip::marksPicture() {
    const QSize size(width(), marksHeight());
    const qreal pixelRatio = devicePixelRatioF();
    if (m_marks.isNull() || m_marks.size() != (QSizeF(size) * pixelRatio).toSize() ||
        !qFuzzyCompare(m_marks.devicePixelRatio(), pixelRatio)) {
        m_marks = GridDrawing::transparentPicture(size, pixelRatio);
        QPainter painter(&m_marks);
        painter.setRenderHint(QPainter::Antialiasing);
        for (const Overview::Mark& mark : Overview::marks(m_counts, size.height())) {
            const int left = laneLeft + static_cast<int>(mark.lane) * laneStep;
            painter.setOpacity(mark.opacity);
            painter.fillRect(QRectF(left, mark.top, laneWidth, mark.height), laneColor(m_theme.palette(), mark.lane));
        }
    }
    return m_marks;
}

void OverviewStrip::goTo(double y) {
    const auto& visible = m_model.visible();
    if (!m_model.result() || visible.empty()) {
        return;
    }
    const auto rows = static_cast<std::int64_t>(m_model.result()->rows.size());
    const std::int64_t row = Overview::rowAt(y - marksTop(), rows, marksHeight());
    auto nearest = std::lower_bound(visible.begin(), visible.end(), row);
    if (nearest == visible.end() || (nearest != visible.begin() && row - *(nearest - 1) < *nearest - row)) {
        --nearest;
    }
    m_grid.centerOn(nearest - visible.begin());
}

void OverviewStrip::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        goTo(event->position().y());
    }
}

void OverviewStrip::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) {
        goTo(event->position().y());
    }
}

void OverviewStrip::wheelEvent(QWheelEvent* event) { QCoreApplication::sendEvent(m_grid.verticalScrollBar(), event); }

}  // namespace corvale
