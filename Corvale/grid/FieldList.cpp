#include "Corvale/grid/FieldList.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "Corvale/grid/FieldView.h"
#include "Corvale/grid/ValueText.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Theme.h"

namespace corvale {

namespace {

constexpr int scrollStep = 30;

}  // namespace

FieldList::FieldList(AppModel& model, const Theme& theme, QWidget* parent)
    : QAbstractScrollArea(parent), m_model(model), m_theme(theme) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    verticalScrollBar()->setSingleStep(scrollStep);
}

void FieldList::refresh(const GridColumns& columns, bool fromTop) {
    m_columns = &columns;
    m_result = m_model.result();
    m_row = m_model.selectedRow();
    m_isStale = true;
    m_goesToTop = m_goesToTop || fromTop;
    if (isVisible()) {
        catchUp();
    }
}

bool FieldList::isCurrent() const {
    const auto& result = m_model.result();
    return m_columns && !m_result.owner_before(result) && !result.owner_before(m_result) &&
           m_row == m_model.selectedRow();
}

// Not while hidden: nobody would see it, and the width is not the one that it will be shown in.
void FieldList::catchUp() {
    estimateHeights();
    updateScrollBar();
    if (std::exchange(m_goesToTop, false)) {
        verticalScrollBar()->setValue(0);
    }
    recycleViews(fieldsOnScreen());
    for (const auto& [field, view] : m_views) {
        fill(*view, field);
    }
    m_isStale = false;
    layOutViews();
}

FieldView* FieldList::view(std::size_t field) const {
    const auto found = m_views.find(field);
    return found == m_views.end() ? nullptr : found->second;
}

void FieldList::estimateHeights() {
    const FieldView::Fonts fonts(font());
    const auto row = m_model.selectedRow();
    m_heights.assign(m_model.result() && row ? m_model.result()->columns.size() : 0, 0);
    for (std::size_t field = 0; field < m_heights.size(); ++field) {
        m_heights[field] = FieldView::estimatedHeight(
            fonts, RowField::of(*m_model.result(), *m_columns, *row, field), viewport()->width());
    }
    sumHeights();
}

void FieldList::sumHeights() {
    m_tops.assign(1, 0);
    for (const int height : m_heights) {
        m_tops.push_back(m_tops.back() + height);
    }
}

void FieldList::updateScrollBar() {
    verticalScrollBar()->setRange(0, std::max(0, m_tops.back() - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
}

std::size_t FieldList::fieldAt(int y) const {
    const auto after = std::upper_bound(m_tops.begin(), m_tops.end(), y);
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(after - m_tops.begin() - 1, 0));
}

// And one more on either side, which Tab goes on to.
FieldList::Range FieldList::fieldsOnScreen() const {
    const int top = verticalScrollBar()->value();
    const std::size_t first = fieldAt(top);
    return {first > 0 ? first - 1 : 0, std::min(fieldAt(top + viewport()->height()) + 2, m_heights.size())};
}

void FieldList::layOutViews() {
    if (m_isLayingOut || m_isStale || !isCurrent() || m_tops.empty()) {
        return;
    }
    const QScopedValueRollback<bool> busy(m_isLayingOut, true);
    // Measuring moves what follows, and may bring more on screen; a field is measured once, so this ends.
    Range range = fieldsOnScreen();
    while (measureViews(range)) {
        sumHeights();
        updateScrollBar();
        range = fieldsOnScreen();
    }
    recycleViews(range);
    placeViews();
}

// False when nothing turned out to be of another height.
bool FieldList::measureViews(Range range) {
    bool isNews = false;
    for (std::size_t field = range.begin; field < range.end; ++field) {
        const int height = viewFor(field).heightIn(viewport()->width());
        isNews = isNews || height != m_heights[field];
        m_heights[field] = height;
    }
    return isNews;
}

void FieldList::placeViews() {
    QWidget* previous = nullptr;
    for (const auto& [field, view] : m_views) {
        view->setGeometry(0, m_tops[field] - verticalScrollBar()->value(), viewport()->width(), m_heights[field]);
        view->show();
        for (QWidget* value : {static_cast<QWidget*>(&view->before()), static_cast<QWidget*>(&view->after())}) {
            if (previous) {
                setTabOrder(previous, value);
            }
            previous = value;
        }
    }
}

bool FieldList::hasKeyboard(const FieldView& view) const {
    // Also while another window is the active one.
    return view.isAncestorOf(window()->focusWidget());
}

void FieldList::recycleViews(Range kept) {
    for (auto known = m_views.begin(); known != m_views.end();) {
        const bool isWanted = known->first >= kept.begin && known->first < kept.end;
        // Hidden, it would hand the keyboard to another value, which would be scrolled to.
        if (isWanted || (known->first < m_heights.size() && hasKeyboard(*known->second))) {
            ++known;
            continue;
        }
        known->second->hide();
        m_spare.push_back(known->second);
        known = m_views.erase(known);
    }
}

FieldView& FieldList::viewFor(std::size_t field) {
    FieldView*& view = m_views[field];
    if (!view) {
        view = newView();
        fill(*view, field);
    }
    return *view;
}

void FieldList::fill(FieldView& view, std::size_t field) const {
    view.setField(RowField::of(*m_model.result(), *m_columns, *m_model.selectedRow(), field));
}

FieldView* FieldList::newView() {
    if (!m_spare.empty()) {
        FieldView* view = m_spare.back();
        m_spare.pop_back();
        return view;
    }
    auto* view = new FieldView(m_theme, viewport());
    view->before().installEventFilter(this);
    view->after().installEventFilter(this);
    return view;
}

bool FieldList::eventFilter(QObject* watched, QEvent* event) {
    // Not when its window gets the keyboard back: the value may have been scrolled away on purpose.
    const bool isGoneTo =
        event->type() == QEvent::FocusIn && static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason;
    if (isGoneTo && !m_isStale) {
        for (const auto& [field, view] : m_views) {
            if (watched == &view->before() || watched == &view->after()) {
                ensureFieldOnScreen(field);
                break;
            }
        }
    }
    return QAbstractScrollArea::eventFilter(watched, event);
}

void FieldList::ensureFieldOnScreen(std::size_t field) {
    QScrollBar* bar = verticalScrollBar();
    const int top = m_tops[field];
    if (top < bar->value()) {
        bar->setValue(top);
    } else if (m_tops[field + 1] > bar->value() + viewport()->height()) {
        bar->setValue(std::min(top, m_tops[field + 1] - viewport()->height()));
    }
}

void FieldList::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), m_theme.palette().surface);
}

void FieldList::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    Q_EMIT fieldWidthChanged();
    if (!m_isLayingOut && !m_isStale && isCurrent()) {
        estimateHeights();
        updateScrollBar();
        layOutViews();
    }
}

void FieldList::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    if (m_isStale && isCurrent()) {
        catchUp();
    }
}

void FieldList::scrollContentsBy(int, int) { layOutViews(); }

void FieldList::keyPressEvent(QKeyEvent* event) {
    // From a value that did not use the key itself.
    switch (event->key()) {
        case Qt::Key_PageUp:
            verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
            return;
        case Qt::Key_PageDown:
            verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
            return;
        default:
            QAbstractScrollArea::keyPressEvent(event);
    }
}

}  // namespace corvale
