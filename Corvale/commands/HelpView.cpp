#include "Corvale/commands/HelpView.h"

#include <QAction>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QTextBrowser>
#include <QTextCursor>
#include <QVBoxLayout>
#include <QWindow>

#include "Corvale/style/Icons.h"
#include "Corvale/style/Look.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"

namespace corvale {

namespace {

constexpr QSize usual(820, 560);
constexpr int articleMargin = 34;

QTextBlockFormat paragraph(qreal spaceBelow, qreal lineHeight) {
    QTextBlockFormat format;
    format.setBottomMargin(spaceBelow);
    format.setLineHeight(lineHeight, QTextBlockFormat::MinimumHeight);
    return format;
}

QTextCharFormat letters(TextRole role, const QColor& color) {
    QTextCharFormat format;
    format.setFont(fontFor(role));
    format.setForeground(color);
    return format;
}

}  // namespace

HelpView::HelpView(Theme& theme, QWidget* parent)
    : AuxiliaryWindow(tr("Corvale Help"), parent),
      m_theme(theme),
      m_topics(helpTopics()),
      m_selected(QStringLiteral("start")),
      m_search(new QLineEdit(this)),
      m_list(new QListWidget(this)),
      m_nothing(new QLabel(tr("No topic has these words."), this)),
      m_text(new QTextBrowser(this)),
      m_email(new QPushButton(tr("Email Support"), this)) {
    setAttribute(Qt::WA_QuitOnClose, false);
    resize(usual.boundedTo(screen()->availableSize()));
    m_search->setPlaceholderText(tr("Search help"));
    m_search->setAccessibleName(tr("Search help"));
    m_search->setClearButtonEnabled(true);
    m_search->addAction(QIcon(), QLineEdit::LeadingPosition);
    m_list->setAccessibleName(tr("Topics"));
    m_email->setAutoDefault(false);
    for (const Topic& topic : m_topics) {
        auto* const item = new QListWidgetItem(topic.title, m_list);
        item->setData(Qt::UserRole, topic.id);
    }
    layOut();

    connect(m_search, &QLineEdit::textChanged, this, &HelpView::filterTopics);
    connect(m_list, &QListWidget::currentRowChanged, this, &HelpView::takeSelection);
    connect(m_email, &QPushButton::clicked, this, &HelpView::emailWanted);
    connect(&theme, &Theme::changed, this, &HelpView::drawIcons);
    connect(&theme, &Theme::changed, this, &HelpView::showTopic);
    select(m_selected);
    drawIcons();
}

void HelpView::layOut() {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(makeSidebar());
    row->addWidget(makeArticle(), 1);
}

QWidget* HelpView::makeSidebar() {
    auto* const sidebar = new QFrame(this);
    sidebar->setFixedWidth(Metrics::helpSidebar);
    setLook(*sidebar, Look::sidebar);
    setLook(*m_list, Look::topics);
    m_list->setIconSize(QSize(Metrics::icon, Metrics::icon));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setLook(*m_nothing, Look::secondaryText);
    m_nothing->setWordWrap(true);
    m_nothing->setContentsMargins(18, 10, 18, 10);
    m_nothing->hide();
    auto* const search = new QVBoxLayout;
    search->setContentsMargins(8, 10, 8, 0);
    search->addWidget(m_search);
    auto* const column = new QVBoxLayout(sidebar);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(search);
    column->addWidget(m_nothing);
    column->addWidget(m_list, 1);
    return sidebar;
}

QWidget* HelpView::makeArticle() {
    auto* const article = new QWidget(this);
    setLook(*article, Look::surface);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->document()->setDocumentMargin(0);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* const column = new QVBoxLayout(article);
    column->setContentsMargins(articleMargin, 26, articleMargin, 26);
    column->setSpacing(8);
    column->addWidget(m_text, 1);
    column->addWidget(m_email, 0, Qt::AlignLeft);
    return article;
}

void HelpView::drawIcons() {
    const Palette& palette = m_theme.palette();
    for (int row = 0; row < m_list->count(); ++row) {
        m_list->item(row)->setIcon(
            Icons::icon(m_topics[row].symbol, {palette.text2, palette.disabled, palette.accent}));
    }
    m_search->actions().constFirst()->setIcon(
        Icons::icon(QStringLiteral("magnifyingglass"), {palette.text2, palette.disabled, palette.text2}));
}

void HelpView::select(const QString& id) {
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_topics[row].id == id) {
            m_list->setCurrentRow(row);
        }
    }
}

void HelpView::takeSelection() {
    if (const QListWidgetItem* item = m_list->currentItem()) {
        m_selected = item->data(Qt::UserRole).toString();
        showTopic();
    }
}

void HelpView::filterTopics() {
    int first = -1;
    for (int row = m_list->count() - 1; row >= 0; --row) {
        const bool isFound = m_topics[row].contains(m_search->text());
        m_list->item(row)->setHidden(!isFound);
        first = isFound ? row : first;
    }
    m_nothing->setVisible(first < 0);
    const QListWidgetItem* current = m_list->currentItem();
    if (first >= 0 && (current == nullptr || current->isHidden())) {
        m_list->setCurrentRow(first);
    }
}

void HelpView::showTopic() {
    const Topic& topic = m_topics[m_list->currentRow()];
    const QColor color = m_theme.palette().text;
    QTextCursor cursor(m_text->document());
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    cursor.setBlockFormat(paragraph(14, 26));
    cursor.insertText(topic.title, letters(TextRole::helpTitle, color));
    for (const QString& text : topic.paragraphs) {
        cursor.insertBlock(paragraph(13, 22));
        cursor.insertText(text, letters(TextRole::helpText, color));
    }
    cursor.endEditBlock();
    m_text->moveCursor(QTextCursor::Start);
    m_text->setAccessibleName(topic.title);
    m_email->setVisible(topic.id == u"support");
}

void HelpView::open() {
    // To Qt the help would be a window of the main one, which a sheet over that one keeps from mouse and keys.
    create();
    windowHandle()->setTransientParent(nullptr);
    if (!isVisible()) {
        m_search->clear();
    }
    AuxiliaryWindow::open();
    m_list->setFocus(Qt::OtherFocusReason);
}

}  // namespace corvale
