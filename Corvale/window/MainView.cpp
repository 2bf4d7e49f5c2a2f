#include "Corvale/window/MainView.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QSplitter>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "Corvale/grid/DiffGrid.h"
#include "Corvale/grid/OverviewStrip.h"
#include "Corvale/grid/RowInspector.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/EmptyState.h"
#include "Corvale/window/FileDrop.h"
#include "Corvale/window/FilesBar.h"
#include "Corvale/window/MainToolbar.h"
#include "Corvale/window/MatchBar.h"
#include "Corvale/window/ProblemAlert.h"
#include "Corvale/window/ProgressOverlay.h"
#include "Corvale/window/SummaryStrip.h"

namespace corvale {

namespace {

int inspectorWidthIn(int windowWidth) {
    return windowWidth >= Metrics::withoutTexts ? Metrics::detailsWidth
           : windowWidth >= 860                 ? 240
                                                : Metrics::detailsWidthMin;
}

}  // namespace

MainView::MainView(AppModel& model, Platform& platform, Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_theme(theme),
      m_toolbar(new MainToolbar(model, theme, this)),
      m_files(new FilesBar(model, theme, this)),
      m_match(new MatchBar(model, theme, this)),
      m_results(makeResults(platform)),
      m_progress(new ProgressOverlay(model, theme, m_results)),
      m_problem(new ProblemAlert(model, theme, this)) {
    setAcceptDrops(true);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_toolbar);
    column->addWidget(m_files);
    column->addWidget(m_match);
    column->addWidget(m_results, 1);
    connectToModel();
    refresh();
}

QWidget* MainView::makeResults(Platform& platform) {
    auto* const results = new QWidget(this);
    auto* const column = new QVBoxLayout(results);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_strip = new SummaryStrip(m_model, m_theme, results);
    column->addWidget(m_strip);
    auto* const body = new QWidget(results);
    m_body = new QStackedLayout(body);
    m_empty = new EmptyState(m_model, m_theme, body);
    m_splitter = makeSplitter(platform, body);
    m_body->addWidget(m_empty);
    m_body->addWidget(m_splitter);
    column->addWidget(body, 1);
    return results;
}

QSplitter* MainView::makeSplitter(Platform& platform, QWidget* parent) {
    auto* const splitter = new QSplitter(parent);
    auto* const list = new QWidget(splitter);
    list->setLayoutDirection(Qt::LeftToRight);
    auto* const row = new QHBoxLayout(list);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    m_grid = new DiffGrid(m_model, m_theme, list);
    row->addWidget(m_grid, 1);
    row->addWidget(new OverviewStrip(m_model, *m_grid, m_theme, platform, list));
    m_inspector = new RowInspector(m_model, m_theme, splitter);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(1);
    return splitter;
}

void MainView::connectToModel() {
    for (const auto changed : {&AppModel::beforeChanged,
                               &AppModel::afterChanged,
                               &AppModel::resultChanged,
                               &AppModel::showInspectorChanged}) {
        connect(&m_model, changed, this, &MainView::refresh);
    }
    connect(&m_model, &AppModel::resultChanged, this, &MainView::focusGrid);
    connect(&m_theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

void MainView::refresh() {
    const bool hasResult = m_model.result() != nullptr;
    m_match->setVisible(m_model.before() && m_model.after());
    m_strip->setVisible(hasResult);
    m_inspector->setVisible(m_model.showInspector());
    m_body->setCurrentWidget(hasResult ? static_cast<QWidget*>(m_splitter) : m_empty);
}

void MainView::focusGrid() {
    const bool isTyping = qobject_cast<QLineEdit*>(window()->focusWidget()) != nullptr;
    if (m_model.result() && !isTyping && QApplication::activePopupWidget() == nullptr) {
        m_grid->setFocus(Qt::OtherFocusReason);
    }
}

void MainView::fitInspector() {
    // Only where the window asks for another width, so that the user's own stays.
    const int wanted = inspectorWidthIn(width());
    if (wanted != m_inspectorWidth) {
        m_inspectorWidth = wanted;
        m_splitter->setSizes({width() - wanted, wanted});
    }
}

void MainView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitInspector();
}

void MainView::dragEnterEvent(QDragEnterEvent* event) { m_files->showTargets(FileDrop::take(*event).size()); }

void MainView::dragLeaveEvent(QDragLeaveEvent*) { m_files->showTargets(0); }

void MainView::dropEvent(QDropEvent* event) {
    m_files->showTargets(0);
    if (const QList<QUrl> files = FileDrop::take(*event); !files.isEmpty()) {
        m_model.open(files, m_files->sideForDrop());
    }
}

void MainView::keyPressEvent(QKeyEvent* event) {
    // From wherever the keyboard is: what has it knows nothing of changes.
    if (event->key() == Qt::Key_F8) {
        QApplication::sendEvent(m_grid, event);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void MainView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.palette().window);
    // The edge of the bars, where the match bar does not draw it.
    const int top = m_results->y();
    painter.fillRect(0, top - 1, width(), 1, m_theme.palette().border);
}

}  // namespace corvale
