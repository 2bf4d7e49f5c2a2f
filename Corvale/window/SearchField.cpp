#include "Corvale/window/SearchField.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/Edit.h"
#include "Corvale/style/Icons.h"
#include "Corvale/style/Theme.h"

namespace corvale {

SearchField::SearchField(AppModel& model, Theme& theme, QWidget* parent)
    : QLineEdit(parent),
      m_model(model),
      m_theme(theme),
      m_symbol(addAction(QIcon(), LeadingPosition)),
      m_clear(addAction(QIcon(), TrailingPosition)) {
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
    const Icons::Colors colors{palette.text2, palette.disabled, palette.text2};
    m_symbol->setIcon(Icons::icon(QStringLiteral("magnifyingglass"), colors));
    m_clear->setIcon(Icons::icon(QStringLiteral("xmark.circle.fill"), colors));
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
    Edit::filter(m_model, [&text](DiffFilter& filter) { filter.search = text.toStdString(); });
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

}  // namespace corvale
