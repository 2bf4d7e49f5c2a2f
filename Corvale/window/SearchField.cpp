#include "Corvale/window/SearchField.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>

#include "Corvale/model/AppModel.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/Drawing.h"

namespace corvale {

namespace {

constexpr int fieldHeight = 28;
constexpr int symbolSize = 16;

}  // namespace

SearchField::SearchField(AppModel& model, Theme& theme, QWidget* parent)
    : QLineEdit(parent), m_model(model), m_theme(theme), m_symbol(addAction(QIcon(), LeadingPosition)),
      m_clear(addAction(QIcon(), TrailingPosition)) {
    setFrame(false);
    setFixedHeight(fieldHeight);
    setAttribute(Qt::WA_MacShowFocusRect, false);
    setPlaceholderText(tr("Search rows"));
    setAccessibleName(tr("Search rows"));
    setToolTip(tr("Search every cell (⌘F)"));
    setAccessibleDescription(toolTip());
    m_clear->setText(tr("Clear the search"));
    m_clear->setToolTip(tr("Clear the search"));
    drawIcons();

    connect(this, &QLineEdit::textEdited, this, &SearchField::search);
    connect(m_clear, &QAction::triggered, this, [this] { search({}); });
    connect(&model, &AppModel::filterChanged, this, &SearchField::refresh);
    connect(&model, &AppModel::resultChanged, this, &SearchField::refresh);
    connect(&model, &AppModel::focusSearchChanged, this, &SearchField::takeFocus);
    connect(&theme, &Theme::changed, this, &SearchField::drawIcons);
    refresh();
    takeFocus();
}

void SearchField::drawIcons() {
    const Palette& palette = m_theme.palette();
    m_symbol->setIcon(Drawing::icon(m_theme, QStringLiteral("magnifyingglass"), palette.text2, symbolSize));
    m_clear->setIcon(Drawing::icon(m_theme, QStringLiteral("xmark.circle.fill"), palette.text2, symbolSize));
    update();
}

void SearchField::refresh() {
    const QString wanted = QString::fromStdString(m_model.filter().search);
    if (text() != wanted) {
        setText(wanted);
    }
    m_clear->setVisible(!wanted.isEmpty());
    setEnabled(m_model.result() != nullptr);
}

void SearchField::search(const QString& text) {
    DiffFilter filter = m_model.filter();
    filter.search = text.toStdString();
    m_model.setFilter(filter);
}

void SearchField::takeFocus() {
    if (m_model.focusSearch()) {
        setFocus(Qt::ShortcutFocusReason);
        selectAll();
        m_model.setFocusSearch(false);
    }
}

void SearchField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
        search({});
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void SearchField::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) {
        event->ignore();
    } else {
        QLineEdit::dragEnterEvent(event);
    }
}

void SearchField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        const Palette& palette = m_theme.palette();
        const QColor border = !isEnabled() ? palette.border : hasFocus() ? palette.accent : palette.controlBorder;
        Drawing::box(painter, rect(), 6, isEnabled() ? palette.surface : QColor(Qt::transparent), border,
                     hasFocus() ? 2 : 1);
    }
    QLineEdit::paintEvent(event);
}

}  // namespace corvale
