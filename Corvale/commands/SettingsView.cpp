#include "Corvale/commands/SettingsView.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "Corvale/commands/GeneralSettings.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"
#include "Corvale/window/Drawing.h"

namespace corvale {

namespace {

constexpr int barHeight = 68;
constexpr QSize tabSize(78, 49);

// The only tab there is, and so always the chosen one.
class TabBar : public QWidget {
public:
    TabBar(QString title, Theme& theme, QWidget* parent) : QWidget(parent), m_title(std::move(title)), m_theme(theme) {
        setFixedHeight(barHeight);
        // Naming it makes its interface, for good.
        QAccessible::installFactory(interfaceFor);
        setAccessibleName(m_title);
        connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Palette& palette = m_theme.palette();
        QPainter painter(this);
        painter.fillRect(0, height() - 1, width(), 1, palette.border);
        const QFont font = fontFor(TextRole::bodyStrong);
        const int wide = std::max(tabSize.width(), Drawing::textWidth(font, m_title) + 32);
        const QRect tab((width() - wide) / 2, 10, wide, tabSize.height());
        Drawing::box(painter, tab, 7, palette.accentTint, palette.accentTint);
        Drawing::symbol(
            painter, QStringLiteral("gearshape"), palette.accent, QRect(tab.x(), tab.y() + 6, wide, 20), 20);
        const int left = tab.x() + (wide - Drawing::textWidth(font, m_title)) / 2;
        Drawing::text(painter, QRect(left, tab.y() + 28, wide, 16), m_title, font, palette.accent);
    }

private:
    static QAccessibleInterface* interfaceFor(const QString&, QObject* object) {
        auto* const bar = dynamic_cast<TabBar*>(object);
        return bar == nullptr ? nullptr : new QAccessibleWidget(bar, QAccessible::PageTab);
    }

    QString m_title;
    Theme& m_theme;
};

}  // namespace

SettingsView::SettingsView(AppModel& model, Theme& theme, QWidget* parent)
    : AuxiliaryWindow(tr("Settings"), parent), m_model(model) {
    const QString general = tr("General");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new TabBar(general, theme, this));
    auto* const page = new GeneralSettings(model, theme, this);
    page->setAccessibleName(general);
    column->addWidget(page);
    column->setSizeConstraint(QLayout::SetFixedSize);
    connect(&model, &AppModel::sheetChanged, this, &SettingsView::closeUnderSheet);
}

// A sheet keeps the windows of the main one from mouse and keys: this one would only cover it.
void SettingsView::closeUnderSheet() {
    if (m_model.sheet()) {
        close();
    }
}

}  // namespace corvale
