#include "tests/end-to-end/Twin.h"

#include <QApplication>
#include <QUrl>
#include <memory>
#include <stdexcept>

#include "Corvale/grid/DiffGrid.h"
#include "tests/end-to-end/User.h"

namespace corvale::TestSupport {

namespace {

QUrl urlOf(const std::string& path) { return QUrl::fromLocalFile(QString::fromStdString(path)); }

}  // namespace

Twin::Twin(const QString& settingsFile)
    : m_platform(std::make_unique<QSettings>(settingsFile, QSettings::IniFormat)),
      m_theme(*qApp),
      m_store(settingsFile, QSettings::IniFormat) {}

bool Twin::compare(const std::string& before, const std::string& after) {
    m_model.open({urlOf(before), urlOf(after)}, Side::before);
    return User::waitUntil([this] { return m_model.result() && !m_model.visible().empty(); });
}

QPoint Twin::middleOf(const QString& control) {
    layOut();
    const QWidget& widget = find(control);
    return widget.mapTo(&m_window, widget.rect().center());
}

QPoint Twin::middleOfLine(std::int64_t line) {
    layOut();
    const DiffGrid& grid = *m_window.findChild<DiffGrid*>();
    return grid.viewport()->mapTo(&m_window, (grid.lineArea(line) & grid.viewport()->rect()).center());
}

template <typename NameOf>
QWidget* Twin::find(const QString& name, NameOf nameOf) {
    for (QWidget* widget : m_window.findChildren<QWidget*>()) {
        if ((widget->*nameOf)().startsWith(name) && widget->isVisibleTo(&m_window)) {
            return widget;
        }
    }
    return nullptr;
}

QWidget& Twin::find(const QString& control) {
    QWidget* widget = find(control, &QWidget::accessibleName);
    if (widget == nullptr) {
        widget = find(control, &QWidget::toolTip);
    }
    if (widget == nullptr) {
        throw std::runtime_error("the window shows no " + control.toStdString());
    }
    return *widget;
}

// What is never shown is laid out only for a picture.
void Twin::layOut() { m_window.grab(); }

}  // namespace corvale::TestSupport
