#include "Corvale/grid/DiffGrid.h"

#include <QAccessible>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <limits>
#include <vector>

#include "Corvale/grid/BriefNote.h"
#include "Corvale/grid/GridAccessibility.h"
#include "Corvale/grid/GridHeader.h"
#include "Corvale/grid/GridPlaceholder.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Theme.h"

namespace corvale {

namespace {

constexpr int lineHeight = LinePainter::lineHeight;
constexpr int sidewaysStep = 40;

// Why a list is empty.
GridPlaceholder::Subject reasonForNoRows(const DiffResult& result, const DiffFilter& filter) {
    const bool showsAll = filter.show == DiffFilter::Show::all;
    const bool isNarrowed = showsAll && (filter.column || !filter.search.empty());
    return result.summary.hasDifferences() || isNarrowed ? GridPlaceholder::Subject::noRowsMatch
                                                         : GridPlaceholder::Subject::noDifferences;
}

}  // namespace

DiffGrid::DiffGrid(AppModel& model, Theme& theme, QWidget* parent)
    : QAbstractScrollArea(parent),
      m_model(model),
      m_theme(theme),
      m_contents(font()),
      m_painter(theme, m_contents),
      m_header(new GridHeader(model, m_contents, theme, this)),
      m_placeholder(new GridPlaceholder(GridPlaceholder::Subject::noDifferences, theme, viewport())),
      m_note(new BriefNote(theme, viewport())) {
    GridAccessibility::install();
    setFrameShape(QFrame::NoFrame);
    // A table's columns stand as they do in the files, and its scroll bars have to move the same way.
    setLayoutDirection(Qt::LeftToRight);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Changes"));
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    verticalScrollBar()->setSingleStep(lineHeight);
    horizontalScrollBar()->setSingleStep(sidewaysStep);
    connect(&model, &AppModel::resultChanged, this, &DiffGrid::refresh);
    connect(&model, &AppModel::settingsChanged, this, &DiffGrid::takeView);
    connect(&model, &AppModel::visibleChanged, this, &DiffGrid::showVisibleRows);
    connect(&model, &AppModel::filterChanged, this, &DiffGrid::takeFilter);
    connect(&model, &AppModel::selectedRowChanged, this, &DiffGrid::showSelection);
    connect(&theme, &Theme::changed, this, &DiffGrid::applyTheme);
    refresh();
}

DiffGrid::~DiffGrid() = default;

void DiffGrid::refresh() {
    takeResult();
    layOut();
    showLines();
}

void DiffGrid::showLines() {
    updateScrollBars();
    updatePlaceholder();
    setHoveredLine(std::nullopt);
    m_header->update();
    viewport()->update();
    QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
    Q_EMIT viewMoved();
}

void DiffGrid::takeResult() {
    const auto& result = m_model.result();
    if (!m_measured.take(result)) {
        return;
    }
    m_currentChange.reset();
    m_contents.layout = result ? GridLayout::of(*result) : GridLayout();
    m_contents.columns = result ? GridColumns(*result) : GridColumns();
}

void DiffGrid::layOut() {
    const ViewMode mode = view();
    const int header = headerHeight();
    if (viewportMargins().top() != header) {
        setViewportMargins(0, header, 0, 0);
    }
    m_contents.layout.fit(mode, viewport()->width());
    m_contents.geometry = GridGeometry(m_contents.layout, mode, m_contents.columns.firstKey(), viewport()->width());
    m_contents.setFonts(font(), mode);
    m_painter.forgetPictures();
    m_header->setGeometry(viewport()->x(), viewport()->y() - header, viewport()->width(), header);
}

void DiffGrid::updateScrollBars() {
    const std::int64_t height = lineCount() * lineHeight - viewport()->height();
    constexpr std::int64_t mostPixels = std::numeric_limits<int>::max() - 2 * lineHeight;
    verticalScrollBar()->setRange(0, static_cast<int>(std::clamp<std::int64_t>(height, 0, mostPixels)));
    verticalScrollBar()->setPageStep(viewport()->height());
    horizontalScrollBar()->setRange(0, m_model.result() ? m_contents.geometry.maximumScroll() : 0);
    horizontalScrollBar()->setPageStep(viewport()->width());
    m_header->setScroll(scroll());
}

void DiffGrid::updatePlaceholder() {
    const bool isEmpty = m_model.result() && lineCount() == 0;
    if (isEmpty) {
        m_placeholder->setSubject(reasonForNoRows(*m_model.result(), m_model.filter()));
    }
    setAccessibleDescription(isEmpty ? m_placeholder->message() : QString());
    m_placeholder->setGeometry(viewport()->rect());
    m_placeholder->setVisible(isEmpty);
}

void DiffGrid::takeView() {
    if (m_contents.geometry.view() != view()) {
        refresh();
    }
}

void DiffGrid::showVisibleRows() {
    showLines();
    if (const auto line = selectedLine()) {
        ensureLineOnScreen(*line);
    } else if (m_model.selectedRow()) {
        verticalScrollBar()->setValue(0);
    }
}

void DiffGrid::takeFilter() {
    // The list itself comes later, and only if it is another one.
    updatePlaceholder();
    if (!m_model.selectedRow()) {
        verticalScrollBar()->setValue(0);
    }
}

void DiffGrid::showSelection() {
    if (m_currentChange && m_model.selectedRow() != m_currentChange->row) {
        m_currentChange.reset();
    }
    if (const auto line = selectedLine()) {
        ensureLineOnScreen(*line);
    }
    viewport()->update();
    announceSelection();
}

void DiffGrid::applyTheme() {
    m_painter.forgetPictures();
    m_header->update();
    viewport()->update();
}

int DiffGrid::scroll() const { return horizontalScrollBar()->value(); }

ViewMode DiffGrid::view() const { return m_model.settings().view; }

int DiffGrid::headerHeight() const { return GridHeader::heightFor(view()); }

std::int64_t DiffGrid::lineCount() const {
    return m_model.result() ? static_cast<std::int64_t>(m_model.visible().size()) : 0;
}

GridRow DiffGrid::row(std::int64_t line) const {
    return {*m_model.result(), m_model.visible()[static_cast<std::size_t>(line)], m_contents.geometry};
}

DiffGrid::Lines DiffGrid::linesOnScreen() const {
    const std::int64_t top = verticalScrollBar()->value();
    const std::int64_t end = (top + viewport()->height() + lineHeight - 1) / lineHeight;
    return {std::min(top / lineHeight, lineCount()), std::min(end, lineCount())};
}

std::optional<std::int64_t> DiffGrid::selectedLine() const {
    const auto& visible = m_model.visible();
    const auto row = m_model.selectedRow();
    if (!row || !m_model.result()) {
        return std::nullopt;
    }
    const auto found = std::lower_bound(visible.begin(), visible.end(), *row);
    return found != visible.end() && *found == *row ? std::optional<std::int64_t>(found - visible.begin())
                                                    : std::nullopt;
}

QRect DiffGrid::lineArea(std::int64_t line) const {
    const auto top = static_cast<int>(line * lineHeight - verticalScrollBar()->value());
    return {0, top, viewport()->width(), lineHeight};
}

QRect DiffGrid::cellArea(std::int64_t line, std::size_t cell) const {
    const QRect area = lineArea(line);
    const GridGeometry& geometry = m_contents.geometry;
    return {geometry.screenLeft(cell, scroll()), area.top(), geometry.cells()[cell].width(), area.height()};
}

void DiffGrid::centerOn(std::int64_t line) {
    const auto top = static_cast<int>(std::clamp<std::int64_t>(line, 0, lineCount()) * lineHeight);
    verticalScrollBar()->setValue(top - (viewport()->height() - lineHeight) / 2);
}

void DiffGrid::ensureLineOnScreen(std::int64_t line) {
    const QRect area = lineArea(line);
    QScrollBar* bar = verticalScrollBar();
    if (area.top() < 0) {
        bar->setValue(bar->value() + area.top());
    } else if (area.bottom() >= viewport()->height()) {
        bar->setValue(bar->value() + area.bottom() + 1 - viewport()->height());
    }
}

void DiffGrid::scrollToCell(std::size_t cell) {
    horizontalScrollBar()->setValue(m_contents.geometry.scrollToShow(cell, scroll()));
}

void DiffGrid::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    m_painter.setPixelRatio(viewport()->devicePixelRatioF());
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.fillRect(event->rect(), m_theme.palette().surface);
    if (lineCount() > 0) {
        paintLines(painter, event->rect());
        LinePainter::paintEdges(painter, m_theme.palette().border, m_contents.geometry, scroll(), viewport()->height());
    }
}

void DiffGrid::paintLines(QPainter& painter, const QRect& area) {
    const int top = verticalScrollBar()->value();
    const Lines onScreen = linesOnScreen();
    const Lines lines{std::max<std::int64_t>(onScreen.begin, (top + area.top()) / lineHeight),
                      std::min<std::int64_t>(onScreen.end, (top + area.bottom()) / lineHeight + 1)};
    std::vector<GridRow> rows;
    for (std::int64_t line = lines.begin; line < lines.end; ++line) {
        rows.push_back(row(line));
    }
    const auto forEach = [&](const auto& paint) {
        std::int64_t line = lines.begin;
        for (const GridRow& gridRow : rows) {
            paint(gridRow, lineArea(line).top(), stateOf(line));
            ++line;
        }
    };
    const int scrolledLeft = m_contents.geometry.scrolledAreaLeft(scroll());
    painter.setClipRect(scrolledLeft, 0, viewport()->width() - scrolledLeft, viewport()->height());
    forEach([&](const GridRow& gridRow, int y, const LinePainter::State& state) {
        m_painter.paintScrolled(painter, gridRow, y, scroll(), state);
    });
    painter.setClipping(false);
    forEach([&](const GridRow& gridRow, int y, const LinePainter::State& state) {
        m_painter.paintPinned(painter, gridRow, y, scroll(), state);
    });
    const auto selected = selectedLine();
    if (selected && *selected >= onScreen.begin && *selected < onScreen.end) {
        m_painter.paintSelection(painter, lineArea(*selected).top(), viewport()->width(), hasFocus());
    }
}

LinePainter::State DiffGrid::stateOf(std::int64_t line) const {
    LinePainter::State state;
    state.isSelected = selectedLine() == line;
    state.isHovered = m_hoveredLine == line;
    state.gridHasFocus = hasFocus();
    if (state.isSelected && m_currentChange) {
        const auto changes = row(line).row().changes;
        state.currentColumn = changes[m_currentChange->change].column;
    }
    return state;
}

void DiffGrid::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    layOut();
    updateScrollBars();
    updatePlaceholder();
    Q_EMIT viewMoved();
}

void DiffGrid::scrollContentsBy(int /*dx*/, int dy) {
    m_header->setScroll(scroll());
    viewport()->update();
    setHoveredLine(lineAt(viewport()->mapFromGlobal(QCursor::pos()).y()));
    if (dy != 0) {
        Q_EMIT viewMoved();
    }
}

void DiffGrid::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        refresh();
    }
}

}  // namespace corvale
