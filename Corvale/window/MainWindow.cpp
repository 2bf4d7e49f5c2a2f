#include "Corvale/window/MainWindow.h"

#include <QScreen>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/window/MainView.h"
#include "Corvale/window/WindowTracker.h"

namespace corvale {

namespace {

constexpr QSize smallest(Metrics::windowMinWidth, Metrics::windowMinHeight);
constexpr QSize usual(1280, 800);

}  // namespace

MainWindow::MainWindow(AppModel& model, Platform& platform, Theme& theme)
    : m_model(model), m_view(new MainView(model, platform, theme, this)) {
    setWindowTitle(tr("Corvale"));
    setCentralWidget(m_view);
    setMinimumSize(smallest);
    resize(startSize());
    new WindowTracker(*m_view, [this](QWidget& window) { m_closeGuard.setMain(&window); }, {});
    // Help or settings may close whatever goes on.
    m_closeGuard.shouldClose = [this](const QWidget& window) { return &window != this || mayClose(); };
    connect(&model, &AppModel::exportingChanged, this, &MainWindow::closeAfterExport);
}

QSize MainWindow::startSize() const { return usual.boundedTo(screen()->availableSize()).expandedTo(smallest); }

bool MainWindow::mayClose() {
    m_closesAfterExport = m_model.exporting();
    return !m_closesAfterExport;
}

void MainWindow::closeAfterExport() {
    // When it failed, there is something to read first.
    if (!m_model.exporting() && std::exchange(m_closesAfterExport, false) && !m_model.problem()) {
        close();
    }
}

}  // namespace corvale
